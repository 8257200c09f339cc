// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_INDEXFORECAST_H
#define VESK_FASTINFOSET_INDEXFORECAST_H

#include <array>
#include <cstddef>
#include <set>
#include <string>

namespace Vesk::FastInfoset
{

class TypedText;

/// Foresees whether short text that could be stored as a value had better stay text, because it will repeat: the first
/// time it costs more, from then on it is an index.
///
/// It keeps account, for each encoding algorithm, of what the document's text so far would have cost in either form, and
/// follows the cheaper one. What it loses by being wrong at first is a few octets an algorithm.
class IndexForecast
{
public:
    /// Text of up to so many octets is indexed.
    explicit IndexForecast(int maxIndexedLength);

    /// To be asked once for each text with a value that takes fewer octets than the text, in document order.
    bool prefersText(const std::string& text, const TypedText& typed);

private:
    struct Account
    {
        std::size_t textOctets = 0;
        std::size_t typedOctets = 0;
    };

    const std::size_t _maxIndexedLength;
    std::array<Account, 16> _accounts; // by algorithm
    std::set<std::string> _texts;      // those so far that would be in the table
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_INDEXFORECAST_H
