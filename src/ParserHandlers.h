// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_PARSERHANDLERS_H
#define VESK_FASTINFOSET_PARSERHANDLERS_H

namespace Vesk::XML
{
class ContentHandler;
class DTDHandler;
class LexicalHandler;
} // namespace Vesk::XML

namespace Vesk::FastInfoset
{

class FISContentHandler;
class FISDocumentHandler;
class StructureObserver;

/// Where the events of one document go. Each handler is borrowed and may be null.
struct ParserHandlers
{
    XML::ContentHandler* content = nullptr;
    FISContentHandler* typedContent = nullptr; // the content handler, if it takes typed values
    XML::LexicalHandler* lexical = nullptr;
    XML::DTDHandler* dtd = nullptr;
    FISDocumentHandler* document = nullptr;
    StructureObserver* observer = nullptr; // not null for a parser that is observed
    bool namespacePrefixes = true;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_PARSERHANDLERS_H
