// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "DocumentParser.h"
#include "ParserHandlers.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FISParseException.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/XML/EntityResolverImpl.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXException.h"
#include "Vesk/XML/XMLWriter.h"

namespace Vesk::FastInfoset
{

const std::string FastInfosetParser::EMPTY_STRING;
const std::string FastInfosetParser::XMLNS = "xmlns";

ResolvedQualName::ResolvedQualName()
    : prefix(&FastInfosetParser::EMPTY_STRING),
      namespaceName(&FastInfosetParser::EMPTY_STRING),
      localName(&FastInfosetParser::EMPTY_STRING)
{
}

FastInfosetParser::FastInfosetParser(DocumentVocabulary::VocabularyImpl impl)
    : _vocabulary(impl),
      _implementation(impl),
      _documentParser(std::make_unique<DocumentParser<Unobserved>>())
{
}

FastInfosetParser::FastInfosetParser(const DocumentVocabulary& vocabulary)
    : _vocabulary(vocabulary),
      _implementation(vocabulary.implementation()),
      _preparedAlphabets(vocabulary.restrictedAlphabets()),
      _documentParser(std::make_unique<DocumentParser<Unobserved>>())
{
}

FastInfosetParser::~FastInfosetParser() = default;

void FastInfosetParser::setEntityResolver(XML::EntityResolver* resolver)
{
    _entityResolver = resolver;
}

XML::EntityResolver* FastInfosetParser::getEntityResolver() const
{
    return _entityResolver;
}

void FastInfosetParser::setDTDHandler(XML::DTDHandler* handler)
{
    _dtdHandler = handler;
}

XML::DTDHandler* FastInfosetParser::getDTDHandler() const
{
    return _dtdHandler;
}

void FastInfosetParser::setContentHandler(XML::ContentHandler* handler)
{
    _contentHandler = handler;
    _typedContentHandler = dynamic_cast<FISContentHandler*>(handler);
}

XML::ContentHandler* FastInfosetParser::getContentHandler() const
{
    return _contentHandler;
}

void FastInfosetParser::setErrorHandler(XML::ErrorHandler* handler)
{
    _errorHandler = handler;
}

XML::ErrorHandler* FastInfosetParser::getErrorHandler() const
{
    return _errorHandler;
}

void FastInfosetParser::setDocumentHandler(FISDocumentHandler* handler)
{
    _documentHandler = handler;
}

FISDocumentHandler* FastInfosetParser::getDocumentHandler() const
{
    return _documentHandler;
}

void FastInfosetParser::setStructureObserver(StructureObserver* observer)
{
    _structureObserver = observer;
}

StructureObserver* FastInfosetParser::getStructureObserver() const
{
    return _structureObserver;
}

unsigned long FastInfosetParser::octetOffset() const
{
    return _locator.octetOffset();
}

void FastInfosetParser::setFeature(const XML::XMLString& featureId, bool state)
{
    if (featureId == FEATURE_NAMESPACE_PREFIXES)
        _namespacePrefixes = state;
    else if (featureId != FEATURE_NAMESPACES)
        throw XML::SAXNotRecognizedException(featureId);
    else if (!state)
        throw XML::SAXNotSupportedException(featureId, "namespace support cannot be disabled");
}

bool FastInfosetParser::getFeature(const XML::XMLString& featureId) const
{
    if (featureId == FEATURE_NAMESPACES)
        return true;
    if (featureId == FEATURE_NAMESPACE_PREFIXES)
        return _namespacePrefixes;
    throw XML::SAXNotRecognizedException(featureId);
}

void FastInfosetParser::setProperty(const XML::XMLString& propertyId, const XML::XMLString&)
{
    if (propertyId == PROPERTY_DECLARATION_HANDLER || propertyId == PROPERTY_LEXICAL_HANDLER)
        throw XML::SAXNotSupportedException("property does not take a string value: " + propertyId);
    throw XML::SAXNotRecognizedException(propertyId);
}

void FastInfosetParser::setProperty(const XML::XMLString& propertyId, void* value)
{
    if (propertyId == PROPERTY_DECLARATION_HANDLER)
        _declHandler = static_cast<XML::DeclHandler*>(value);
    else if (propertyId == PROPERTY_LEXICAL_HANDLER)
        _lexicalHandler = static_cast<XML::LexicalHandler*>(value);
    else
        throw XML::SAXNotRecognizedException(propertyId);
}

void* FastInfosetParser::getProperty(const XML::XMLString& propertyId) const
{
    if (propertyId == PROPERTY_DECLARATION_HANDLER)
        return _declHandler;
    if (propertyId == PROPERTY_LEXICAL_HANDLER)
        return _lexicalHandler;
    throw XML::SAXNotRecognizedException(propertyId);
}

void FastInfosetParser::initialize(XML::XMLWriter* writer)
{
    if (writer)
        connect(*writer, dynamic_cast<FastInfosetWriter*>(writer));
}

void FastInfosetParser::initialize(FastInfosetWriter* writer)
{
    if (writer)
        connect(*writer, writer);
}

template <typename Writer>
void FastInfosetParser::connect(Writer& writer, FISDocumentHandler* documentHandler)
{
    setContentHandler(&writer);
    setDocumentHandler(documentHandler);
    setDTDHandler(&writer);
    setProperty(PROPERTY_LEXICAL_HANDLER, static_cast<XML::LexicalHandler*>(&writer));
}

void FastInfosetParser::parse(XML::InputSource* source)
{
    std::istream* stream = source->getByteStream() ? source->getByteStream() : source->getCharacterStream();
    if (!stream)
    {
        parse(source->getSystemId());
        return;
    }
    BitStreamReader reader(*stream);
    parseDocument(reader, source);
}

void FastInfosetParser::parse(const XML::XMLString& systemId)
{
    XML::EntityResolverImpl resolver;
    const auto release = [&resolver](XML::InputSource* source)
    {
        resolver.releaseInputSource(source);
    };
    const std::unique_ptr<XML::InputSource, decltype(release)> source(resolver.resolveEntity(nullptr, systemId),
                                                                      release);
    if (!source)
        throw FISParseException("Cannot resolve system identifier", systemId);
    parse(source.get());
}

void FastInfosetParser::parseMemoryNP(const char* xml, std::size_t size)
{
    BitStreamReader reader(xml, size);
    parseDocument(reader);
}

void FastInfosetParser::parseDocument(BitStreamReader& reader, const XML::InputSource* source)
{
    if (_parsing)
        throw InvalidAccessException("the parser is parsing a document already");
    const auto end = [](FastInfosetParser* parser)
    {
        parser->_locator.end();
        parser->_parsing = false;
    };
    const std::unique_ptr<FastInfosetParser, decltype(end)> parsing(this, end);
    _parsing = true;
    _locator.begin(reader, source);

    // The header resets the tables; the rest of what earlier documents brought goes here.
    if (_vocabulary.implementation() != _implementation)
        _vocabulary = DocumentVocabulary(_implementation);
    _vocabulary.restrictedAlphabets() = _preparedAlphabets;

    ParserHandlers handlers;
    handlers.content = _contentHandler;
    handlers.typedContent = _typedContentHandler;
    handlers.lexical = _lexicalHandler;
    handlers.dtd = _dtdHandler;
    handlers.document = _documentHandler;
    handlers.observer = _structureObserver;
    handlers.namespacePrefixes = _namespacePrefixes;

    if (_contentHandler)
        _contentHandler->setDocumentLocator(&_locator);
    if (!_structureObserver)
    {
        _documentParser->parseDocument(reader, _vocabulary, handlers, _externalDepth);
        return;
    }
    if (!_observedParser)
        _observedParser = std::make_unique<DocumentParser<Observed>>();
    _observedParser->parseDocument(reader, _vocabulary, handlers, _externalDepth);
}

} // namespace Vesk::FastInfoset
