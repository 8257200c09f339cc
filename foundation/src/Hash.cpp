// SPDX-License-Identifier: MIT
#include "Vesk/Hash.h"
#include "SipHash.h"
#include <random>

namespace Vesk
{

namespace
{

std::uint64_t random64(std::random_device& device)
{
    const std::uint64_t high = device();
    return high << 32 | device();
}

SipHash<1, 3> makeProcessHash()
{
    std::random_device device;
    const std::uint64_t key0 = random64(device);
    const std::uint64_t key1 = random64(device);
    return SipHash<1, 3>(key0, key1);
}

// Drawn at the first use, so that static objects of other libraries can hash, too.
const SipHash<1, 3>& processHash()
{
    static const SipHash<1, 3> instance = makeProcessHash();
    return instance;
}

} // namespace

std::uint32_t hash(const char* data, std::size_t octetCount)
{
    return static_cast<std::uint32_t>(processHash()(data, octetCount));
}

std::uint32_t hash(std::uint32_t first, std::uint32_t second, std::uint32_t third)
{
    return static_cast<std::uint32_t>(processHash()(first, second, third));
}

} // namespace Vesk
