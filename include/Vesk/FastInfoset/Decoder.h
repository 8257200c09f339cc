// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_DECODER_H
#define VESK_FASTINFOSET_DECODER_H

#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/FastInfoset/QualifiedNameEntry.h"
#include "Vesk/FastInfoset/Vocabulary.h"
#include <string>

namespace Vesk::FastInfoset
{

class DocumentVocabulary;
class FISDocumentHandler;
class Observed;

/// Reads the primitive codes of a document and, built on them, its header and initial vocabulary. What a code looks
/// like depends on the bit offset at which it starts, that is, how many bits of the current octet have been consumed.
///
/// Three kinds of failure are kept apart: a code asked for at an offset where it cannot start throws
/// FISEncodingException and reads nothing; input that ends inside a code throws FISParseException; a document that
/// declares itself wrongly throws FISException. After an exception the reader stands wherever the failed read left it.
///
/// Where a function takes an Observed, a parser that is observed passes what tells its observer; null for everybody else.
class VESK_FASTINFOSET_API Decoder
{
public:
    /// \name Primitive codes
    /// @{

    /// Reads identification, version and the padding bit of the header (X.891 12.6 to 12.9). Fills xmlDeclaration with
    /// the leading XML declaration from "<?" to the first '>', or empties it. Leaves bit offset 1.
    static void documentPreHeader(BitStreamReader& reader, std::string& xmlDeclaration, Observed* observed = nullptr);

    /// Reads an integer at offset 1, 2, 3, 4 or 6 (X.891 C.25, C.27, C.28, C.29). The spare bits of the longer forms
    /// are not checked. At offset 1 the form 1111111 is 0.
    static void integer(BitStreamReader& reader, unsigned int& value);

    /// Reads the length, in octets and at least 1, of a string at offset 1, 4 or 6 (X.891 C.22 to C.24).
    static void nonEmptyStringLength(BitStreamReader& reader, unsigned long& octetCount);

    /// Reads such a length and the octets that it announces. No character decoding happens.
    static void nonEmptyOctetString(BitStreamReader& reader, std::string& octets);

    /// Reads the number of items of a sequence, at least 1, on an octet boundary (X.891 C.21).
    static void lengthOfSequence(BitStreamReader& reader, unsigned int& count);

    /// Reads a name surrogate at offset 6 (X.891 C.16). Absent parts are 0xFFFFFFFF.
    static QualifiedNameEntry nameSurrogate(BitStreamReader& reader);

    /// @}
    /// \name Header and initial vocabulary
    /// @{

    /// The components that follow the initial vocabulary, in the order in which they follow.
    struct OpenHeaderParts
    {
        /// Whether the component is there.
        bool notations = false;
        bool unparsedEntities = false;
        bool characterEncodingScheme = false;
        bool standalone = false;
        bool version = false;
    };

    /// Reads the header's flags, additional data and initial vocabulary (X.891 C.2) and brings the vocabulary to the
    /// state with which the body starts. Tells which of the remaining parts follow.
    /// Requires: bit offset 1, where documentPreHeader leaves the reader. The handler may be null; it is told of an
    /// external vocabulary. externalDepth counts the external vocabularies that are being loaded already.
    static OpenHeaderParts documentHeader(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                          FISDocumentHandler* handler, int externalDepth = 0,
                                          Observed* observed = nullptr);

    /// Reads the additional data and forgets it.
    static void skipAdditionalData(BitStreamReader& reader, Observed* observed = nullptr);

    /// Reads an initial vocabulary (X.891 C.2.5) into the vocabulary.
    static void parseInitialVocabulary(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                       FISDocumentHandler* handler, int externalDepth = 0,
                                       Observed* observed = nullptr);

    /// Reads the URI of an external vocabulary and replaces the vocabulary by what is found there, unless the
    /// vocabulary was prepared for that very URI. See ExternalVocabulary for what is opened and how.
    static void handleExternalVocabulary(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                         FISDocumentHandler* handler, int externalDepth = 0,
                                         Observed* observed = nullptr);

    /// Adds the alphabets that the header declares to those of the vocabulary.
    static void handleRestrictedAlphabet(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                         Observed* observed = nullptr);

    /// Reads the URIs of additional algorithms and forgets them: no decoder can be registered for them.
    static void skipEncodingAlgos(BitStreamReader& reader, DocumentVocabulary& vocabulary,
                                  Observed* observed = nullptr);

    /// \name Tables of the initial vocabulary
    /// Each entry takes the next free index of the table. An entry that the table holds already is a failed check.
    /// @{

    /// A table of strings that are literals.
    static void handleVocabulary(BitStreamReader& reader, Vocabulary<std::string>& table, Observed* observed = nullptr);
    /// A table of strings that may be encoded.
    static void handleEncodedCharacterStringVoc(BitStreamReader& reader, Vocabulary<std::string>& table,
                                                DocumentVocabulary& vocabulary, Observed* observed = nullptr);
    /// A table of names.
    static void handleNameSurrogatesVoc(BitStreamReader& reader, Vocabulary<QualifiedNameEntry>& table,
                                        Observed* observed = nullptr);
    /// @}

    /// Reads an encoded character string at bit offset 2 as text. In the alphabet and algorithm forms an 8-bit integer
    /// that means nothing stands before the index; the body's strings do not have it.
    static void encodedCharacterString(BitStreamReader& reader, std::string& text, DocumentVocabulary& vocabulary,
                                       Observed* observed = nullptr);

    /// @}
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_DECODER_H
