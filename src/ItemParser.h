// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ITEMPARSER_H
#define VESK_FASTINFOSET_ITEMPARSER_H

#include "ParserHandlers.h"
#include "Vesk/FastInfoset/Decoder.h"
#include <string>

namespace Vesk::FastInfoset
{

class StringParser;

/// Reads the rarer information items and reports them: comments, processing instructions, the document type
/// declaration, entity references, and what the header lists behind the vocabulary.
///
/// Each operation starts behind the identification bits of its structure; X.891 names the structures.
class ItemParser
{
public:
    explicit ItemParser(StringParser& strings)
        : _strings(strings)
    {
    }

    /// Starts with the body of a document. The reader is borrowed.
    void begin(BitStreamReader& reader, const ParserHandlers& handlers);

    /// Reads the header's remaining parts (X.891 C.2.6 to C.2.10), on an octet boundary.
    void parseDocumentChildren(const Decoder::OpenHeaderParts& parts);

    /// On an octet boundary (X.891 C.8).
    void parseComment();

    /// On an octet boundary (X.891 C.5).
    void parseProcessingInstruction();

    /// At bit offset 6 (X.891 C.9). What it declares is a system and a public identifier; it has no name.
    void parseDocumentTypeDeclaration();

    /// At bit offset 6 (X.891 C.6). Reads it and reports nothing.
    void parseUnexpandedEntityReference();

    /// At bit offset 6 (X.891 C.11).
    void parseNotation();

    /// At bit offset 7 (X.891 C.10).
    void parseUnparsedEntity();

private:
    struct Identifiers
    {
        bool hasSystemId;
        bool hasPublicId;
    };

    unsigned int readBits(int numOfBits, const char* what);
    Identifiers readIdentifiers(const char* positionMessage);
    void parseNotations();
    void parseUnparsedEntities();

    StringParser& _strings;
    BitStreamReader* _reader = nullptr;
    ParserHandlers _handlers;
    std::string _buffer; // text that is in no table
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ITEMPARSER_H
