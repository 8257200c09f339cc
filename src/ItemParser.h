// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ITEMPARSER_H
#define VESK_FASTINFOSET_ITEMPARSER_H

#include "Observation.h"
#include "ParserHandlers.h"
#include "Vesk/FastInfoset/Decoder.h"
#include <string>

namespace Vesk::FastInfoset
{

template <class Observation>
class StringParser;

/// Reads the rarer information items and reports them: comments, processing instructions, the document type
/// declaration, entity references, and what the header lists behind the vocabulary.
///
/// Each operation starts behind the octet that identifies its structure (X.891 names them) or ends with it; where that
/// octet says more, it is passed on.
///
/// Observation is Unobserved or Observed.
template <class Observation>
class ItemParser
{
public:
    /// Both are borrowed.
    ItemParser(StringParser<Observation>& strings, Observation& observation)
        : _strings(strings),
          _observation(observation)
    {
    }

    /// Starts with the body of a document. The reader is borrowed.
    void begin(BitStreamReader& reader, const ParserHandlers& handlers);

    /// Reads the header's remaining parts (X.891 C.2.6 to C.2.10), on an octet boundary.
    void parseDocumentChildren(const Decoder::OpenHeaderParts& parts);

    /// X.891 C.8
    void parseComment();

    /// X.891 C.5
    void parseProcessingInstruction();

    /// X.891 C.9. What it declares is a system and a public identifier; it has no name. Returns the octet that holds its
    /// terminator in the first half and what comes next in the second.
    unsigned int parseDocumentTypeDeclaration(unsigned int octet);

    /// X.891 C.6. Reads it and reports nothing.
    void parseUnexpandedEntityReference(unsigned int octet);

private:
    const std::string* optionalURI(bool isPresent);
    void endList(StructureObserver::Structure structure);
    void parseNotations();
    void parseNotation(unsigned int octet);
    void parseUnparsedEntities();
    void parseUnparsedEntity(unsigned int octet);

    StringParser<Observation>& _strings;
    Observation& _observation;
    BitStreamReader* _reader = nullptr;
    ParserHandlers _handlers;
    std::string _buffer; // text that is in no table
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ITEMPARSER_H
