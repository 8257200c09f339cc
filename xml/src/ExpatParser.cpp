// SPDX-License-Identifier: MIT
#include "ExpatParser.h"
#include "ContentModel.h"
#include "ResolvedSource.h"
#include "Vesk/Exception.h"
#include "Vesk/XML/ContentHandler.h"
#include "Vesk/XML/DTDHandler.h"
#include "Vesk/XML/DeclHandler.h"
#include "Vesk/XML/ErrorHandler.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/LexicalHandler.h"
#include "Vesk/XML/SAXParseException.h"
#include <algorithm>
#include <climits>
#include <istream>
#include <new>
#include <utility>

namespace Vesk::XML
{
namespace
{
// Behind every block but the last, expat goes through it once more to count its lines, so a document of some size is
// given to it in few of them. Small ones need not take the memory.
constexpr int FIRST_BLOCK_OCTETS = 64 * 1024;
constexpr int BLOCK_OCTETS = 256 * 1024;
constexpr std::size_t MAX_TEXT_OCTETS = 1024 * 1024;

// Expat copies and hashes the namespace name anew for every prefixed attribute. This keeps a document with one huge
// name and many attributes from taking time out of proportion to its size.
constexpr std::size_t MAX_NAMESPACE_OCTETS = 16 * 1024;

// Entities inside entities cost expat stack. A chain of them is never longer than the number of those that refer to
// others; this many take about 200 KiB.
constexpr int MAX_NESTING_ENTITIES = 500;
constexpr int MAX_EXTERNAL_DEPTH = 32;

// A parser that reads many documents keeps the names of earlier ones, unless they have become this many.
constexpr std::size_t MAX_KEPT_NAMES = 4096;
constexpr std::size_t MAX_KEPT_VALUES = 64;
constexpr std::size_t MAX_KEPT_OCTETS = 4096; // of a value

const XMLString EMPTY;
const XMLString CDATA_TYPE = "CDATA";

XMLString orEmpty(const XML_Char* text)
{
    return text ? XMLString(text) : XMLString();
}

// The stream of a source and, if known from outside, its encoding.
class SourceStream
{
public:
    explicit SourceStream(const InputSource& source)
        : _stream(source.getByteStream())
    {
        if (_stream)
        {
            _encoding = source.getEncoding();
        }
        else
        {
            _stream = source.getCharacterStream();
            _encoding = "UTF-8";
        }
    }

    std::istream& stream() const { return *_stream; }
    const XML_Char* encoding() const { return _encoding.empty() ? nullptr : _encoding.c_str(); }

private:
    std::istream* _stream;
    XMLString _encoding;
};

// What SAX passes as a pointer that may be null.
class OptionalString
{
public:
    explicit OptionalString(const XML_Char* text)
        : _text(orEmpty(text)),
          _isPresent(text != nullptr)
    {
    }

    const XMLString* get() const { return _isPresent ? &_text : nullptr; }

private:
    XMLString _text;
    bool _isPresent;
};
} // namespace

ExpatParser::ExpatParser(const SAXSettings& settings)
    : _settings(settings),
      _text(1024, '\0')
{
}

void ExpatParser::parse(const InputSource& source)
{
    const SourceStream stream(source);
    parseDocument(source.getPublicId(), source.getSystemId(), stream.encoding(), [&] { readStream(stream.stream()); });
}

void ExpatParser::parse(const char* xml, std::size_t size)
{
    parseDocument(EMPTY, EMPTY, nullptr, [=] { readMemory(xml, size); });
}

template <class Feed>
void ExpatParser::parseDocument(const XMLString& publicId, const XMLString& systemId, const XML_Char* encoding,
                                Feed feed)
{
    if (_input)
        throw InvalidAccessException("The parser is already parsing a document");

    prepare(encoding);
    Input input = {_parser.get(), publicId, systemId};
    const InputScope scope(_input, input);
    ContentHandler* const handler = _settings.contentHandler;
    if (handler)
    {
        handler->setDocumentLocator(this);
        handler->startDocument();
    }
    feed();
    if (handler)
        handler->endDocument();
}

void ExpatParser::prepare(const XML_Char* encoding)
{
    if (!_parser)
    {
        _parser.reset(XML_ParserCreateNS(encoding, ExpandedNames::SEPARATOR));
        if (!_parser)
            throw std::bad_alloc();
    }
    else
    {
        XML_ParserReset(_parser.get(), encoding);
    }
    setCallbacks();

    _failure = nullptr;
    if (_names.size() > MAX_KEPT_NAMES)
        _names.clear();
    _openElements.clear();
    _attributes.clear();
    // Each value of a document may have filled another string.
    if (_values.size() > MAX_KEPT_VALUES)
        _values.resize(MAX_KEPT_VALUES);
    for (XMLString& value : _values)
    {
        if (value.capacity() > MAX_KEPT_OCTETS)
            XMLString().swap(value);
    }
    _textOctets = 0;
    _inDoctype = false;
    _hasDoctype = false;
    _isStandalone = false;
    _entities.clear();
    _externalDepth = 0;
    _nestingEntities = 0;
}

void ExpatParser::setCallbacks()
{
    XML_Parser const parser = _parser.get();
    XML_SetUserData(parser, this);
    XML_SetXmlDeclHandler(parser, onXMLDeclaration);
    XML_SetReturnNSTriplet(parser, 1);
    XML_SetElementHandler(parser, onStartElement, onEndElement);
    XML_SetCharacterDataHandler(parser, onCharacters);
    XML_SetProcessingInstructionHandler(parser, onProcessingInstruction);
    XML_SetNamespaceDeclHandler(parser, onStartNamespace, onEndNamespace);
    XML_SetSkippedEntityHandler(parser, onSkippedEntity);
    XML_SetDoctypeDeclHandler(parser, onStartDoctype, onEndDoctype);
    XML_SetNotationDeclHandler(parser, onNotation);
    XML_SetEntityDeclHandler(parser, onEntity);
    XML_SetExternalEntityRefHandler(parser, onExternalEntity);
    XML_SetDefaultHandlerExpand(parser, onDefault);
    if (_settings.lexicalHandler)
    {
        XML_SetCommentHandler(parser, onComment);
        XML_SetCdataSectionHandler(parser, onStartCDATA, onEndCDATA);
    }
    if (_settings.declHandler)
    {
        XML_SetAttlistDeclHandler(parser, onAttributeDecl);
        XML_SetElementDeclHandler(parser, onElementDecl);
    }
    // Internal ones take part in every document; of external ones, onExternalEntity says whether they are read.
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
}

void ExpatParser::readStream(std::istream& stream)
{
    XML_Parser const parser = _input->parser;
    int blockOctets = FIRST_BLOCK_OCTETS;
    XML_Index position = 0;
    bool isLast = false;
    while (!isLast)
    {
        void* const block = XML_GetBuffer(parser, blockOctets);
        if (!block)
            throw std::bad_alloc();
        stream.read(static_cast<char*>(block), blockOctets);
        if (stream.bad())
            throw IOException("Cannot read the XML document");
        isLast = !stream;

        check(XML_ParseBuffer(parser, static_cast<int>(stream.gcount()), isLast));
        // A token that does not end in the block is scanned from its start again when more has come. As long as that
        // happens, ever larger blocks keep the effort proportional to the token's length.
        const XML_Index previous = std::exchange(position, XML_GetCurrentByteIndex(parser));
        blockOctets = position == previous ? std::min(blockOctets, INT_MAX / 4) * 2 : BLOCK_OCTETS;
    }
}

void ExpatParser::readMemory(const char* xml, std::size_t size)
{
    constexpr std::size_t MAX_PIECE_OCTETS = INT_MAX / 2;
    XML_Parser const parser = _input->parser;
    while (size > MAX_PIECE_OCTETS)
    {
        check(XML_Parse(parser, xml, static_cast<int>(MAX_PIECE_OCTETS), XML_FALSE));
        xml += MAX_PIECE_OCTETS;
        size -= MAX_PIECE_OCTETS;
    }
    check(XML_Parse(parser, xml, static_cast<int>(size), XML_TRUE));
}

void ExpatParser::check(XML_Status status)
{
    if (_failure)
        std::rethrow_exception(std::exchange(_failure, nullptr));
    if (status != XML_STATUS_OK)
    {
        const XML_Error error = XML_GetErrorCode(_input->parser);
        if (error == XML_ERROR_NO_MEMORY)
            throw std::bad_alloc();
        fail(XML_ErrorString(error));
    }
}

void ExpatParser::fail(const std::string& text)
{
    const SAXParseException exception(text, getPublicId(), getSystemId(), getLineNumber(), getColumnNumber());
    if (_settings.errorHandler)
        _settings.errorHandler->fatalError(exception);
    throw exception;
}

const XMLString& ExpatParser::getPublicId() const
{
    return _input ? _input->publicId : EMPTY;
}

const XMLString& ExpatParser::getSystemId() const
{
    return _input ? _input->systemId : EMPTY;
}

int ExpatParser::getLineNumber() const
{
    return _input ? static_cast<int>(std::min<XML_Size>(XML_GetCurrentLineNumber(_input->parser), INT_MAX)) : -1;
}

int ExpatParser::getColumnNumber() const
{
    // Expat counts columns from 0.
    return _input ? static_cast<int>(std::min<XML_Size>(XML_GetCurrentColumnNumber(_input->parser), INT_MAX - 1)) + 1
                  : -1;
}

template <class Event>
void ExpatParser::guarded(void* self, Event event)
{
    ExpatParser& parser = *static_cast<ExpatParser*>(self);
    if (parser._failure)
        return; // a stopped expat may still report what it has begun
    try
    {
        event(parser);
    }
    catch (...)
    {
        parser._failure = std::current_exception();
        XML_StopParser(parser._input->parser, XML_FALSE);
    }
}

void XMLCALL ExpatParser::onStartElement(void* self, const XML_Char* name, const XML_Char** attributes)
{
    guarded(self, [=](ExpatParser& parser) { parser.startElement(name, attributes); });
}

void ExpatParser::startElement(const XML_Char* name, const XML_Char** attributes)
{
    flushText();
    if (_hasDoctype && _settings.errorHandler)
        warnOfSkippedReference();
    const ExpandedNames::Entry& element = _names.find(name);
    _openElements.push_back(&element);
    collectAttributes(attributes);
    if (_settings.contentHandler)
        _settings.contentHandler->startElement(*element.uri, element.localName, element.qname, _attributes);
    _attributes.clear();
}

// Adds to the namespace declarations that the set already holds if they are wanted.
void ExpatParser::collectAttributes(const XML_Char** attributes)
{
    std::size_t count = 0;
    while (attributes[2 * count])
        ++count;
    if (_values.size() < count)
        _values.resize(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        const ExpandedNames::Entry& name = _names.find(attributes[2 * i]);
        _values[i] = attributes[2 * i + 1];
        _attributes.addReferences(*name.uri, name.localName, name.qname, CDATA_TYPE, _values[i]);
    }
}

void XMLCALL ExpatParser::onEndElement(void* self, const XML_Char*)
{
    guarded(self, [](ExpatParser& parser) { parser.endElement(); });
}

void ExpatParser::endElement()
{
    flushText();
    const ExpandedNames::Entry& element = *_openElements.back();
    _openElements.pop_back();
    if (_settings.contentHandler)
        _settings.contentHandler->endElement(*element.uri, element.localName, element.qname);
}

void XMLCALL ExpatParser::onCharacters(void* self, const XML_Char* text, int length)
{
    guarded(self, [=](ExpatParser& parser) { parser.addText(text, static_cast<std::size_t>(length)); });
}

void ExpatParser::addText(const char* text, std::size_t length)
{
    while (length > MAX_TEXT_OCTETS - _textOctets)
    {
        std::size_t fitting = MAX_TEXT_OCTETS - _textOctets;
        while (fitting > 0 && (text[fitting] & 0xC0) == 0x80)
            --fitting; // not within a character
        appendText(text, fitting);
        flushText();
        text += fitting;
        length -= fitting;
    }
    appendText(text, length);
}

void ExpatParser::appendText(const char* text, std::size_t length)
{
    if (length >= _text.size() - _textOctets) // one octet stays free for the zero
        _text.resize(std::max(2 * _text.size(), _textOctets + length + 1));
    if (length == 1)
        _text[_textOctets] = *text; // expat delivers every line feed by itself
    else
        std::memcpy(&_text[_textOctets], text, length);
    _textOctets += length;
}

void ExpatParser::deliverText()
{
    _text[_textOctets] = '\0';
    const int length = static_cast<int>(std::exchange(_textOctets, 0));
    if (_settings.contentHandler)
        _settings.contentHandler->characters(_text.data(), 0, length);
}

void XMLCALL ExpatParser::onProcessingInstruction(void* self, const XML_Char* target, const XML_Char* data)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                parser.flushText();
                if (parser._settings.contentHandler)
                    parser._settings.contentHandler->processingInstruction(target, data);
            });
}

void XMLCALL ExpatParser::onStartNamespace(void* self, const XML_Char* prefix, const XML_Char* uri)
{
    guarded(self, [=](ExpatParser& parser) { parser.startNamespace(prefix, uri); });
}

void ExpatParser::startNamespace(const XML_Char* prefix, const XML_Char* uri)
{
    flushText();
    const XMLString prefixText = orEmpty(prefix);
    const XMLString uriText = orEmpty(uri);
    if (uriText.size() > MAX_NAMESPACE_OCTETS)
        fail("namespace name too long");
    if (_settings.namespacePrefixes)
        _attributes.addAttribute(EMPTY, EMPTY, prefix ? "xmlns:" + prefixText : "xmlns", CDATA_TYPE, uriText);
    if (_settings.contentHandler)
        _settings.contentHandler->startPrefixMapping(prefixText, uriText);
}

void XMLCALL ExpatParser::onEndNamespace(void* self, const XML_Char* prefix)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                if (parser._settings.contentHandler)
                    parser._settings.contentHandler->endPrefixMapping(orEmpty(prefix));
            });
}

void XMLCALL ExpatParser::onSkippedEntity(void* self, const XML_Char* name, int isParameterEntity)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                parser.flushText();
                if (parser._settings.contentHandler)
                    parser._settings.contentHandler->skippedEntity(isParameterEntity ? XMLString("%") + name : name);
            });
}

int XMLCALL ExpatParser::onExternalEntity(XML_Parser expat, const XML_Char* context, const XML_Char*,
                                          const XML_Char* systemId, const XML_Char* publicId)
{
    ExpatParser* const self = static_cast<ExpatParser*>(XML_GetUserData(expat));
    guarded(self,
            [=](ExpatParser& parser)
            {
                if (!parser.readExternalEntity(context, systemId, publicId))
                    parser.skipExternalEntity(expat, context == nullptr);
            });
    return self->_failure ? XML_STATUS_ERROR : XML_STATUS_OK;
}

// On demand expat passes the text of what it is just handling to the default handler.
void ExpatParser::collectMarkup(XML_Parser expat)
{
    _markup.clear();
    _isCollectingMarkup = true;
    XML_DefaultCurrent(expat);
    _isCollectingMarkup = false;
}

// The callback for an external entity does not name it, but the text that is being handled does: "&name;", "%name;" or
// an entity's value that has the latter in it. What ends the document type declaration asks for the external subset.
void ExpatParser::skipExternalEntity(XML_Parser expat, bool isParameterEntity)
{
    collectMarkup(expat);
    flushText();
    if (!_settings.contentHandler)
        return;
    const std::size_t begin = _markup.find(isParameterEntity ? '%' : '&');
    if (begin == XMLString::npos)
    {
        _settings.contentHandler->skippedEntity("[dtd]");
        return;
    }
    const std::size_t end = _markup.find(';', begin);
    const std::size_t nameBegin = isParameterEntity ? begin : begin + 1;
    _settings.contentHandler->skippedEntity(_markup.substr(nameBegin, end - nameBegin));
}

// Expat drops references in attribute values that it cannot expand, because not all declarations are read, and reports
// nothing. The text of the tag still has them.
void ExpatParser::warnOfSkippedReference()
{
    collectMarkup(_input->parser);
    const XMLString name = _entities.findUndeclared(_markup);
    if (!name.empty())
        _settings.errorHandler->warning(
            SAXParseException("the reference \"&" + name + ";\" in an attribute value cannot be expanded",
                              getPublicId(), getSystemId(), getLineNumber(), getColumnNumber()));
}

void XMLCALL ExpatParser::onDefault(void* self, const XML_Char* text, int length)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                if (parser._isCollectingMarkup)
                    parser._markup.append(text, static_cast<std::size_t>(length));
            });
}

bool ExpatParser::readExternalEntity(const XML_Char* context, const XML_Char* systemId, const XML_Char* publicId)
{
    const bool isEnabled =
        context ? _settings.externalGeneralEntities : _settings.externalParameterEntities && !_isStandalone;
    if (!isEnabled || !_settings.entityResolver || !systemId)
        return false;

    const OptionalString publicIdText(publicId);
    const ResolvedSource source =
        resolveSource(*_settings.entityResolver, publicIdText.get(), absoluteSystemId(getSystemId(), systemId));
    if (!source)
        return false;
    if (_externalDepth == MAX_EXTERNAL_DEPTH)
        fail("external entities nested too deeply");
    parseExternalEntity(context, *source);
    return true;
}

void ExpatParser::parseExternalEntity(const XML_Char* context, const InputSource& source)
{
    const SourceStream stream(source);
    const ParserHolder parser(XML_ExternalEntityParserCreate(_input->parser, context, stream.encoding()));
    if (!parser)
        throw std::bad_alloc();

    Input input = {parser.get(), source.getPublicId(), source.getSystemId()};
    const InputScope scope(_input, input);
    ++_externalDepth;
    readStream(stream.stream());
    --_externalDepth;
}

void XMLCALL ExpatParser::onXMLDeclaration(void* self, const XML_Char*, const XML_Char*, int standalone)
{
    if (standalone == 1) // external entities have declarations of this kind, too, and say nothing there
        static_cast<ExpatParser*>(self)->_isStandalone = true;
}

void XMLCALL ExpatParser::onStartDoctype(void* self, const XML_Char* name, const XML_Char* systemId,
                                         const XML_Char* publicId, int)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                parser._inDoctype = true;
                parser._hasDoctype = true;
                if (parser._settings.lexicalHandler)
                    parser._settings.lexicalHandler->startDTD(name, orEmpty(publicId), orEmpty(systemId));
            });
}

void XMLCALL ExpatParser::onEndDoctype(void* self)
{
    guarded(self,
            [](ExpatParser& parser)
            {
                parser._inDoctype = false;
                if (parser._settings.lexicalHandler)
                    parser._settings.lexicalHandler->endDTD();
            });
}

void XMLCALL ExpatParser::onStartCDATA(void* self)
{
    guarded(self,
            [](ExpatParser& parser)
            {
                parser.flushText();
                parser._settings.lexicalHandler->startCDATA();
            });
}

void XMLCALL ExpatParser::onEndCDATA(void* self)
{
    guarded(self,
            [](ExpatParser& parser)
            {
                parser.flushText();
                parser._settings.lexicalHandler->endCDATA();
            });
}

void XMLCALL ExpatParser::onComment(void* self, const XML_Char* text)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                if (parser._inDoctype)
                    return;
                parser.flushText();
                parser._settings.lexicalHandler->comment(text, 0, static_cast<int>(std::strlen(text)));
            });
}

void XMLCALL ExpatParser::onNotation(void* self, const XML_Char* name, const XML_Char*, const XML_Char* systemId,
                                     const XML_Char* publicId)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                const OptionalString publicIdText(publicId);
                const OptionalString systemIdText(systemId);
                if (parser._settings.dtdHandler)
                    parser._settings.dtdHandler->notationDecl(name, publicIdText.get(), systemIdText.get());
            });
}

void XMLCALL ExpatParser::onEntity(void* self, const XML_Char* name, int isParameterEntity, const XML_Char* value,
                                   int valueLength, const XML_Char*, const XML_Char* systemId, const XML_Char* publicId,
                                   const XML_Char* notationName)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                const XMLString entityName = isParameterEntity ? XMLString("%") + name : XMLString(name);
                const OptionalString publicIdText(publicId);
                if (notationName)
                {
                    if (parser._settings.dtdHandler)
                        parser._settings.dtdHandler->unparsedEntityDecl(entityName, publicIdText.get(), systemId,
                                                                        notationName);
                }
                else if (value)
                {
                    const XMLString text(value, static_cast<std::size_t>(valueLength));
                    parser.countEntity(text, isParameterEntity);
                    if (!isParameterEntity)
                        parser._entities.declare(entityName, text);
                    if (parser._settings.declHandler)
                        parser._settings.declHandler->internalEntityDecl(entityName, text);
                }
                else if (parser._settings.declHandler)
                {
                    parser._settings.declHandler->externalEntityDecl(entityName, publicIdText.get(), orEmpty(systemId));
                }
            });
}

void ExpatParser::countEntity(const XMLString& text, bool isParameterEntity)
{
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
    {
        const bool isReference = (text[i] == '&' && text[i + 1] != '#') || (text[i] == '%' && isParameterEntity);
        if (!isReference)
            continue;
        if (++_nestingEntities > MAX_NESTING_ENTITIES)
            fail("too many entities that refer to other entities");
        return;
    }
}

void XMLCALL ExpatParser::onAttributeDecl(void* self, const XML_Char* elementName, const XML_Char* attributeName,
                                          const XML_Char* type, const XML_Char* value, int isRequired)
{
    guarded(self,
            [=](ExpatParser& parser)
            {
                // Expat says #FIXED by a required attribute that has a value.
                const XML_Char* const mode =
                    isRequired ? (value ? "#FIXED" : "#REQUIRED") : (value ? nullptr : "#IMPLIED");
                const OptionalString modeText(mode);
                const OptionalString valueText(value);
                parser._settings.declHandler->attributeDecl(elementName, attributeName, type, modeText.get(),
                                                            valueText.get());
            });
}

void XMLCALL ExpatParser::onElementDecl(void* self, const XML_Char* name, XML_Content* model)
{
    guarded(self,
            [=](ExpatParser& parser) { parser._settings.declHandler->elementDecl(name, contentModelText(*model)); });
    ExpatParser& parser = *static_cast<ExpatParser*>(self);
    XML_FreeContentModel(parser._input->parser, model);
}
} // namespace Vesk::XML
