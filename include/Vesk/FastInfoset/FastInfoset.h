// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FASTINFOSET_H
#define VESK_FASTINFOSET_FASTINFOSET_H

#include "Vesk/Foundation.h"

/// Marks what libVeskFastInfoset exports; everything else is hidden.
#define VESK_FASTINFOSET_API [[gnu::visibility("default")]]

/// XML in the Fast Infoset binary encoding (ITU-T X.891 | ISO/IEC 24824-1) through SAX2 events.
namespace Vesk::FastInfoset
{
}

#endif // VESK_FASTINFOSET_FASTINFOSET_H
