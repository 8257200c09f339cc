// SPDX-License-Identifier: MIT
#include "IndexForecast.h"
#include "TypedText.h"
#include <algorithm>

namespace Vesk::FastInfoset
{

namespace
{

// The table of texts takes no more.
constexpr std::size_t MAX_TEXTS = 1u << 20;
// One for the first sixteen texts of a document, three beyond the first thousand.
constexpr std::size_t INDEX_OCTETS = 2;

} // namespace

IndexForecast::IndexForecast(int maxIndexedLength)
    : _maxIndexedLength(static_cast<std::size_t>(std::max(maxIndexedLength, 0)))
{
}

bool IndexForecast::prefersText(const std::string& text, const TypedText& typed)
{
    if (text.size() > _maxIndexedLength)
        return false;
    const bool isIndexed = _texts.size() < MAX_TEXTS ? !_texts.insert(text).second : _texts.count(text) > 0;
    Account& account = _accounts[static_cast<std::size_t>(typed.value()->type())];
    account.textOctets += isIndexed ? INDEX_OCTETS : TypedText::textOctets(text.size());
    account.typedOctets += typed.octetCount();
    return account.textOctets <= account.typedOctets;
}

} // namespace Vesk::FastInfoset
