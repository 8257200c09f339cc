// SPDX-License-Identifier: MIT
#ifndef VESK_FOUNDATION_H
#define VESK_FOUNDATION_H

/// Marks what libVeskFoundation exports; everything else is hidden.
#define VESK_FOUNDATION_API [[gnu::visibility("default")]]

static_assert(sizeof(short) == 2 && sizeof(int) == 4 && sizeof(long) == 8,
              "the Vesk libraries need a platform with 16-bit short, 32-bit int and 64-bit long");

/// The base library of the Vesk family: exceptions, checks, reference counting, text encodings, numbers and streams.
namespace Vesk
{
}

#endif // VESK_FOUNDATION_H
