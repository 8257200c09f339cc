// SPDX-License-Identifier: MIT
#ifndef VESK_HASH_H
#define VESK_HASH_H

#include "Vesk/Foundation.h"
#include <cstddef>
#include <cstdint>
#include <string>

namespace Vesk
{

/// Hash values for tables whose keys may come from an attacker: SipHash-1-3 under a key that is drawn once per process
/// from the system's entropy, cut to 32 bits. Nobody outside can prepare keys that collide.
///
/// Equal input has equal hash values within one process and other ones in the next: never store or send them. Safe to
/// call from any thread. The first call throws what std::random_device throws when the system has no entropy to give.
///
/// A string and a block of the same octets have the same value; an empty block may be null. Integers are hashed like
/// their octets, the least significant first.
VESK_FOUNDATION_API std::uint32_t hash(const char* data, std::size_t octetCount);
VESK_FOUNDATION_API std::uint32_t hash(std::uint32_t first, std::uint32_t second, std::uint32_t third);
inline std::uint32_t hash(const std::string& text)
{
    return hash(text.data(), text.size());
}

} // namespace Vesk

#endif // VESK_HASH_H
