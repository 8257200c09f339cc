// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/DocumentRestrictedAlphabet.h"
#include "Vesk/Bugcheck.h"
#include <algorithm>
#include <cstddef>
#include <utility>

namespace Vesk::FastInfoset
{

namespace
{

constexpr const char* NUMERIC = "0123456789-+.e";
constexpr const char* DATE_TIME = "0123456789-:TZ";
constexpr std::size_t BUILT_IN_ALPHABETS = 15;

std::vector<RestrictedAlphabet> makeBuiltIn()
{
    std::vector<RestrictedAlphabet> alphabets;
    alphabets.emplace_back(NUMERIC);
    alphabets.emplace_back(DATE_TIME);
    alphabets.resize(BUILT_IN_ALPHABETS); // the reserved table indexes 3 to 15
    return alphabets;
}

// Made at the first use, so that static objects of other sources can have vocabularies, too.
const std::vector<RestrictedAlphabet>& builtIn()
{
    static const std::vector<RestrictedAlphabet> alphabets = makeBuiltIn();
    return alphabets;
}

} // namespace

const std::string DocumentRestrictedAlphabet::NUMERIC_CHARACTERS = NUMERIC;
const std::string DocumentRestrictedAlphabet::DATE_TIME_CHARACTERS = DATE_TIME;

DocumentRestrictedAlphabet::DocumentRestrictedAlphabet(bool)
    : _alphabets(std::in_place)
{
}

unsigned int DocumentRestrictedAlphabet::add(const std::string& utf8Characters)
{
    RestrictedAlphabet alphabet(utf8Characters);
    ownAlphabets().push_back(std::move(alphabet));
    return static_cast<unsigned int>(_alphabets->size() - 1);
}

void DocumentRestrictedAlphabet::addDummy()
{
    ownAlphabets().emplace_back();
}

const std::vector<RestrictedAlphabet>& DocumentRestrictedAlphabet::alphabets() const
{
    return _alphabets ? *_alphabets : builtIn();
}

const RestrictedAlphabet& DocumentRestrictedAlphabet::alphabet(unsigned int index) const
{
    if (index == 0 || index > alphabets().size())
    {
        Bugcheck::assertion("vocabulary > 0 && vocabulary <= _alphabets.size()",
                            "include/Vesk/FastInfoset/DocumentRestrictedAlphabet", 105);
    }
    return alphabets()[index - 1];
}

RestrictedAlphabet& DocumentRestrictedAlphabet::alphabet(unsigned int index)
{
    std::as_const(*this).alphabet(index); // checks the index
    return ownAlphabets()[index - 1];
}

DocumentRestrictedAlphabet DocumentRestrictedAlphabet::operator-(const DocumentRestrictedAlphabet& other) const
{
    const std::vector<RestrictedAlphabet>& all = alphabets();
    const std::size_t common = other.alphabets().size();
    if (common > all.size())
    {
        Bugcheck::assertion("other.alphabets().size() <= _alphabets.size()", "src/DocumentRestrictedAlphabet", 70);
    }
    DocumentRestrictedAlphabet difference(true);
    difference._alphabets->assign(all.begin() + static_cast<std::ptrdiff_t>(common), all.end());
    return difference;
}

bool DocumentRestrictedAlphabet::isBuiltIn() const
{
    if (!_alphabets)
        return true;
    return std::equal(_alphabets->begin(), _alphabets->end(), builtIn().begin(), builtIn().end(),
                      [](const RestrictedAlphabet& left, const RestrictedAlphabet& right)
                      { return left.characters() == right.characters(); });
}

std::vector<RestrictedAlphabet>& DocumentRestrictedAlphabet::ownAlphabets()
{
    if (!_alphabets)
        _alphabets = builtIn();
    return *_alphabets;
}

} // namespace Vesk::FastInfoset
