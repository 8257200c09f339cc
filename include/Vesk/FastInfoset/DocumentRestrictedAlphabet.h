// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DOCUMENTRESTRICTEDALPHABET_H
#define VESK_FASTINFOSET_DOCUMENTRESTRICTEDALPHABET_H

#include "Vesk/FastInfoset/RestrictedAlphabet.h"
#include <optional>
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

/// The table of restricted alphabets of a document (X.891 clause 7.2.18).
///
/// Table indexes count from 1: 1 and 2 are built in, 3 to 15 are reserved and hold alphabets without characters, and
/// those that a document adds begin at 16. The list of alphabets counts from 0, so index i stands at position i - 1.
///
/// Copying is cheap while the table holds the built-in alphabets only: these are made once for all tables.
class VESK_FASTINFOSET_API DocumentRestrictedAlphabet
{
public:
    static const std::string NUMERIC_CHARACTERS;   ///< "0123456789-+.e", table index 1
    static const std::string DATE_TIME_CHARACTERS; ///< "0123456789-:TZ", table index 2

    /// The table of the 15 built-in and reserved alphabets.
    DocumentRestrictedAlphabet() = default;

    /// A table without any alphabet; the flag has no effect.
    explicit DocumentRestrictedAlphabet(bool);

    /// Appends the alphabet of these characters, even if there is one like it, and returns its position in the list.
    unsigned int add(const std::string& utf8Characters);

    /// Appends an alphabet without characters.
    void addDummy();

    /// The alphabets in table order. The reference stays good until the table is changed.
    const std::vector<RestrictedAlphabet>& alphabets() const;

    /// The alphabet with this table index (from 1); any other index fails a check. Prefer the const form: the other one
    /// makes this table's own copy of the built-in alphabets.
    const RestrictedAlphabet& alphabet(unsigned int index) const;
    RestrictedAlphabet& alphabet(unsigned int index);

    /// The alphabets behind the first other.alphabets().size() ones; what these hold is not compared. Fails a check if
    /// the other table is the larger one.
    DocumentRestrictedAlphabet operator-(const DocumentRestrictedAlphabet& other) const;

    /// True if the table is as the default constructor makes it.
    bool isBuiltIn() const;

private:
    std::vector<RestrictedAlphabet>& ownAlphabets();

    std::optional<std::vector<RestrictedAlphabet>> _alphabets; // none: the built-in ones, shared by all tables
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DOCUMENTRESTRICTEDALPHABET_H
