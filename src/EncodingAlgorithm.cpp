// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/EncodingAlgorithm.h"
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/HexEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/InvalidEncoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"
#include "Vesk/FastInfoset/UUIDEncoding.h"
#include <limits>

namespace Vesk::FastInfoset
{

namespace
{

struct Entry
{
    Encoding::EncodeMethod encode;
    Encoding::CheckMethod check;
};

template <class Class>
constexpr Entry ENTRY = {&Class::encode, &Class::check};

// By algorithm index. Indexes beyond the table are invalid like 0.
constexpr Entry ENTRIES[] = {ENTRY<InvalidEncoding>, ENTRY<HexEncoding>,  ENTRY<DWordEncoding>, ENTRY<ShortEncoding>,
                             ENTRY<IntEncoding>,     ENTRY<LongEncoding>, ENTRY<BoolEncoding>,  ENTRY<FloatEncoding>,
                             ENTRY<DoubleEncoding>,  ENTRY<UUIDEncoding>, ENTRY<CDataEncoding>};
constexpr unsigned int ENTRY_COUNT = sizeof(ENTRIES) / sizeof(ENTRIES[0]);

const Entry& entry(unsigned int index)
{
    return ENTRIES[index < ENTRY_COUNT ? index : 0];
}

} // namespace

Encoding::EncodeMethod EncodingAlgorithm::encoding(unsigned int index) const
{
    return entry(index).encode;
}

Encoding::CheckMethod EncodingAlgorithm::check(unsigned int index) const
{
    return entry(index).check;
}

unsigned int EncodingAlgorithm::findEncoding(const std::string& text) const
{
    int best = std::numeric_limits<int>::max();
    unsigned int result = 0;
    for (unsigned int index = 0; index < ENTRY_COUNT; ++index)
    {
        const int octetCount = check(index)(text);
        if (octetCount > 0 && octetCount < best)
        {
            best = octetCount;
            result = index;
        }
    }
    return result;
}

} // namespace Vesk::FastInfoset
