// SPDX-License-Identifier: MIT
#ifndef VESK_XML_EXPATPARSER_H
#define VESK_XML_EXPATPARSER_H

#include "DeclaredEntities.h"
#include "ExpandedNames.h"
#include "Vesk/XML/AttributesImpl.h"
#include "Vesk/XML/Locator.h"
#include <exception>
#include <expat.h>
#include <iosfwd>
#include <memory>
#include <vector>

namespace Vesk::XML
{
class ContentHandler;
class DTDHandler;
class DeclHandler;
class EntityResolver;
class ErrorHandler;
class InputSource;
class LexicalHandler;

/// Whom a SAXParser tells what.
struct SAXSettings
{
    EntityResolver* entityResolver = nullptr;
    DTDHandler* dtdHandler = nullptr;
    ContentHandler* contentHandler = nullptr;
    ErrorHandler* errorHandler = nullptr;
    DeclHandler* declHandler = nullptr;
    LexicalHandler* lexicalHandler = nullptr;
    bool namespacePrefixes = false;
    bool externalGeneralEntities = false;
    bool externalParameterEntities = false;
};

/// Drives expat through a document and turns its callbacks into SAX events.
///
/// An exception must not pass through expat's frames. It is kept when it leaves a handler, expat is stopped, and it
/// goes on its way once expat has returned.
class ExpatParser : public Locator
{
public:
    /// Borrows the settings, which may change between documents.
    explicit ExpatParser(const SAXSettings& settings);
    ExpatParser(const ExpatParser&) = delete;
    ExpatParser& operator=(const ExpatParser&) = delete;
    ~ExpatParser() override = default;

    /// Parses a document from the source's byte stream, else its character stream; one of them must be there.
    void parse(const InputSource& source);
    void parse(const char* xml, std::size_t size);

    const XMLString& getPublicId() const override;
    const XMLString& getSystemId() const override;
    int getLineNumber() const override;
    int getColumnNumber() const override;

private:
    struct FreeParser
    {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };
    using ParserHolder = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

    // The document or external entity that is being read.
    struct Input
    {
        XML_Parser parser;
        XMLString publicId;
        XMLString systemId;
    };

    class InputScope
    {
    public:
        InputScope(Input*& current, Input& input)
            : _current(current),
              _outer(current)
        {
            current = &input;
        }
        InputScope(const InputScope&) = delete;
        InputScope& operator=(const InputScope&) = delete;
        ~InputScope() { _current = _outer; }

    private:
        Input*& _current;
        Input* const _outer;
    };

    template <class Feed>
    void parseDocument(const XMLString& publicId, const XMLString& systemId, const XML_Char* encoding, Feed feed);
    void prepare(const XML_Char* encoding);
    void setCallbacks();
    void readStream(std::istream& stream);
    void readMemory(const char* xml, std::size_t size);
    void check(XML_Status status);
    [[noreturn]] void fail(const std::string& text);

    template <class Event>
    static void guarded(void* self, Event event);

    static void XMLCALL onStartElement(void* self, const XML_Char* name, const XML_Char** attributes);
    static void XMLCALL onEndElement(void* self, const XML_Char* name);
    static void XMLCALL onCharacters(void* self, const XML_Char* text, int length);
    static void XMLCALL onProcessingInstruction(void* self, const XML_Char* target, const XML_Char* data);
    static void XMLCALL onStartNamespace(void* self, const XML_Char* prefix, const XML_Char* uri);
    static void XMLCALL onEndNamespace(void* self, const XML_Char* prefix);
    static void XMLCALL onSkippedEntity(void* self, const XML_Char* name, int isParameterEntity);
    static int XMLCALL onExternalEntity(XML_Parser parser, const XML_Char* context, const XML_Char* base,
                                        const XML_Char* systemId, const XML_Char* publicId);
    static void XMLCALL onDefault(void* self, const XML_Char* text, int length);
    static void XMLCALL onXMLDeclaration(void* self, const XML_Char* version, const XML_Char* encoding, int standalone);
    static void XMLCALL onStartDoctype(void* self, const XML_Char* name, const XML_Char* systemId,
                                       const XML_Char* publicId, int hasInternalSubset);
    static void XMLCALL onEndDoctype(void* self);
    static void XMLCALL onStartCDATA(void* self);
    static void XMLCALL onEndCDATA(void* self);
    static void XMLCALL onComment(void* self, const XML_Char* text);
    static void XMLCALL onNotation(void* self, const XML_Char* name, const XML_Char* base, const XML_Char* systemId,
                                   const XML_Char* publicId);
    static void XMLCALL onEntity(void* self, const XML_Char* name, int isParameterEntity, const XML_Char* value,
                                 int valueLength, const XML_Char* base, const XML_Char* systemId,
                                 const XML_Char* publicId, const XML_Char* notationName);
    static void XMLCALL onAttributeDecl(void* self, const XML_Char* elementName, const XML_Char* attributeName,
                                        const XML_Char* type, const XML_Char* value, int isRequired);
    static void XMLCALL onElementDecl(void* self, const XML_Char* name, XML_Content* model);

    void startElement(const XML_Char* name, const XML_Char** attributes);
    void collectAttributes(const XML_Char** attributes);
    void endElement();
    void addText(const char* text, std::size_t length);
    void appendText(const char* text, std::size_t length);
    void deliverText();
    void flushText()
    {
        if (_textOctets > 0)
            deliverText();
    }
    void startNamespace(const XML_Char* prefix, const XML_Char* uri);
    void countEntity(const XMLString& text, bool isParameterEntity);
    void collectMarkup(XML_Parser expat);
    void skipExternalEntity(XML_Parser expat, bool isParameterEntity);
    void warnOfSkippedReference();
    bool readExternalEntity(const XML_Char* context, const XML_Char* systemId, const XML_Char* publicId);
    void parseExternalEntity(const XML_Char* context, const InputSource& source);

    const SAXSettings& _settings;
    ParserHolder _parser;
    Input* _input = nullptr; // null between documents
    std::exception_ptr _failure;

    ExpandedNames _names;
    std::vector<const ExpandedNames::Entry*> _openElements;
    AttributesImpl _attributes;
    std::vector<XMLString> _values;
    XMLString _text; // begins with the character data that has not been handed over yet
    std::size_t _textOctets = 0;
    bool _inDoctype = false;
    bool _hasDoctype = false;
    bool _isStandalone = false; // external parameter entities cannot matter, so they are not read
    DeclaredEntities _entities;
    XMLString _markup; // the text of the reference or tag that is being handled, on demand
    bool _isCollectingMarkup = false;
    int _externalDepth = 0;
    int _nestingEntities = 0; // declared entities whose text refers to other entities
};
} // namespace Vesk::XML

#endif // VESK_XML_EXPATPARSER_H
