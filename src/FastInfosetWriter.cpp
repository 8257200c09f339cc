// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "ElementWriter.h"
#include "HeaderWriter.h"
#include "ItemWriter.h"
#include "StringWriter.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/BoolEncoding.h"
#include "Vesk/FastInfoset/CDataEncoding.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"
#include "Vesk/FastInfoset/UUIDEncoding.h"
#include "Vesk/XML/AttributesImpl.h"
#include <cstring>
#include <stdexcept>
#include <typeinfo>

namespace Vesk::FastInfoset
{

namespace
{

DocumentVocabulary::VocabularyImpl checkWritable(DocumentVocabulary::VocabularyImpl impl)
{
    if (impl == DocumentVocabulary::VOC_VECTOR)
        throw InvalidArgumentException(
            "A DocumentVocabulary with VOC_VECTOR implementation cannot be used by FastInfosetWriter");
    return impl;
}

const DocumentVocabulary& checkWritable(const DocumentVocabulary& vocabulary)
{
    checkWritable(vocabulary.implementation());
    return vocabulary;
}

const XML::AttributesImpl NO_ATTRIBUTES;

constexpr std::size_t USUAL_DEPTH = 32; // of most documents; deeper ones take more memory as they go

} // namespace

/// The time in which one event is written: what it finishes goes to the stream in one call when it is done. If it fails
/// half-way, what it has finished goes with whatever reaches the stream next.
class FastInfosetWriter::Event
{
public:
    explicit Event(BitStreamWriter& stream)
        : _stream(stream)
    {
        _stream.hold();
    }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void done() { _stream.release(); }

private:
    BitStreamWriter& _stream;
};

FastInfosetWriter::FastInfosetWriter(std::ostream& stream)
    : FastInfosetWriter(stream, false, DocumentVocabulary::VOC_HASH)
{
}

FastInfosetWriter::FastInfosetWriter(std::ostream& stream, bool writeXMLDeclaration,
                                     DocumentVocabulary::VocabularyImpl impl)
    : _stream(stream, false),
      _writeXMLDeclaration(writeXMLDeclaration),
      _vocabulary(checkWritable(impl)),
      _strings(std::make_unique<StringWriter>(_stream, _vocabulary)),
      _elements(std::make_unique<ElementWriter>(_stream, *_strings)),
      _items(std::make_unique<ItemWriter>(_stream, *_strings))
{
    _states.reserve(USUAL_DEPTH);
    _states.push_back(UNINITIALIZED);
}

FastInfosetWriter::FastInfosetWriter(std::ostream& stream, bool writeXMLDeclaration,
                                     const DocumentVocabulary& vocabulary)
    : FastInfosetWriter(stream, writeXMLDeclaration, vocabulary.implementation())
{
    setDocumentVocabulary(vocabulary);
}

FastInfosetWriter::~FastInfosetWriter() = default;

void FastInfosetWriter::setWriteXMLDeclaration(bool write)
{
    _writeXMLDeclaration = write;
}

void FastInfosetWriter::setDocumentVocabulary(const DocumentVocabulary& vocabulary)
{
    _vocabulary = checkWritable(vocabulary);
    _strings->begin();
}

DocumentVocabulary& FastInfosetWriter::getDocumentVocabulary()
{
    return _vocabulary;
}

const DocumentVocabulary& FastInfosetWriter::getDocumentVocabulary() const
{
    return _vocabulary;
}

void FastInfosetWriter::setExternalVocabulary(const std::string& uri, const DocumentVocabulary& vocabulary)
{
    _externalVocabulary = uri.empty() ? nullptr : std::make_unique<DocumentVocabulary>(vocabulary);
    _externalVocabularyURI = uri;
}

void FastInfosetWriter::setMaxIndexedLength(int octetCount)
{
    _strings->setMaxIndexedLength(octetCount);
}

void FastInfosetWriter::setDocumentLocator(const XML::Locator*)
{
}

void FastInfosetWriter::startDocument()
{
    Event event(_stream);
    _strings->begin();
    HeaderWriter(_stream, *_strings)
        .writeHeader({_writeXMLDeclaration, _vocabulary, _externalVocabularyURI, _externalVocabulary.get(), _notations,
                      _unparsedEntities});
    pushState(DOCUMENT);
    _elements->startDocument();
    event.done();
}

void FastInfosetWriter::endDocument()
{
    checkBalance();
    Event event(_stream);
    handleEncodedData();
    _stream.write(0b1111, 4);
    _stream.complete(false);
    popState();
    event.done();
}

void FastInfosetWriter::startElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                     const XML::XMLString& qname, const XML::Attributes& attributes)
{
    Event event(_stream);
    handleEncodedData();
    _elements->startElement(uri, localName, qname, attributes);
    pushState(ELEMENT);
    event.done();
}

void FastInfosetWriter::endElement(const XML::XMLString&, const XML::XMLString&, const XML::XMLString&)
{
    checkBalance();
    Event event(_stream);
    handleEncodedData();
    _elements->endElement();
    // Not padded: terminators that follow one another share octets.
    _stream.write(0b1111, 4);
    popState();
    event.done();
}

void FastInfosetWriter::characters(const XML::XMLChar ch[], int start, int length)
{
    if (start < 0 || length < 0)
        throw std::out_of_range("negative start or length of characters");
    // Only what belongs to the text is looked at, so that a text without a zero octet behind it is safe as well.
    const std::size_t begin = static_cast<std::size_t>(start);
    std::size_t end = begin + static_cast<std::size_t>(length);
    if (end > 0)
    {
        const void* zero = std::memchr(ch, 0, end);
        if (zero)
            end = static_cast<std::size_t>(static_cast<const char*>(zero) - ch);
    }
    if (begin > end)
        throw std::out_of_range("start of characters beyond the end of the text");
    writeText(ch + begin, end - begin);
}

void FastInfosetWriter::characters(const std::string& text)
{
    writeText(text.data(), text.size());
}

void FastInfosetWriter::writeText(const char* text, std::size_t octetCount)
{
    Event event(_stream);
    handleEncodedData();
    if (octetCount > 0)
    {
        _stream.complete(false);
        _strings->writeCharacterChunk({text, octetCount});
    }
    event.done();
}

void FastInfosetWriter::ignorableWhitespace(const XML::XMLChar ch[], int start, int length)
{
    characters(ch, start, length);
}

void FastInfosetWriter::processingInstruction(const XML::XMLString& target, const XML::XMLString& data)
{
    Event event(_stream);
    handleEncodedData();
    _stream.complete(false);
    _stream.write(0b11100001, 8);
    _items->writeProcessingInstruction(target, data);
    event.done();
}

void FastInfosetWriter::startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri)
{
    _elements->declarePrefix(prefix, uri);
}

void FastInfosetWriter::endPrefixMapping(const XML::XMLString& prefix)
{
    _elements->undeclarePrefix(prefix);
}

void FastInfosetWriter::skippedEntity(const XML::XMLString&)
{
}

void FastInfosetWriter::binaryData(const char* data, std::size_t octetCount)
{
    insertEncoding(new DWordEncoding(data, octetCount));
}

void FastInfosetWriter::encodedData(short value)
{
    insertValue<ShortEncoding>(value);
}

void FastInfosetWriter::encodedData(int value)
{
    insertValue<IntEncoding>(value);
}

void FastInfosetWriter::encodedData(long value)
{
    insertValue<LongEncoding>(value);
}

void FastInfosetWriter::encodedData(bool value)
{
    insertValue<BoolEncoding>(value);
}

void FastInfosetWriter::encodedData(float value)
{
    insertValue<FloatEncoding>(value);
}

void FastInfosetWriter::encodedData(double value)
{
    insertValue<DoubleEncoding>(value);
}

void FastInfosetWriter::encodedData(const UUID& value)
{
    insertValue<UUIDEncoding>(value);
}

void FastInfosetWriter::encodedData(const AutoPtr<Encoding>& values)
{
    insertEncoding(values);
}

// What insertEncoding does with an encoding of this one value, without making it for each of many.
template <class ValueEncoding, class Value>
void FastInfosetWriter::insertValue(const Value& value)
{
    Encoding* const last = _encodedData.empty() ? nullptr : _encodedData.back().get();
    if (last && typeid(*last) == typeid(ValueEncoding))
        static_cast<ValueEncoding*>(last)->append(value);
    else
        insertEncoding(new ValueEncoding(value));
}

void FastInfosetWriter::insertEncoding(const AutoPtr<Encoding>& encoding)
{
    const Encoding& values = *encoding;
    if (_encodedData.empty() || !_encodedData.back()->merge(values))
        _encodedData.push_back(encoding);
}

// Typed values that wait become character chunks. They stay waiting if one of them cannot be written.
void FastInfosetWriter::handleEncodedData()
{
    if (_encodedData.empty())
        return;
    _stream.complete(false);
    for (const AutoPtr<Encoding>& encoding : _encodedData)
    {
        encoding->createContent();
        _stream.write(0b10, 2);
        _strings->writeNonIdentifyingStringOrIndex(encoding, DocumentVocabulary::CONTENT_CHARACTER_CHUNK);
    }
    _encodedData.clear();
}

void FastInfosetWriter::startDTD(const XML::XMLString&, const XML::XMLString& publicId, const XML::XMLString& systemId)
{
    Event event(_stream);
    pushState(DTD);
    _stream.complete(false);
    _stream.write(0b110001, 6);
    _items->writeDocumentTypeDeclaration(publicId, systemId);
    event.done();
}

void FastInfosetWriter::endDTD()
{
    checkBalance();
    _stream.write(0b1111, 4);
    popState();
}

void FastInfosetWriter::startEntity(const XML::XMLString&)
{
}

void FastInfosetWriter::endEntity(const XML::XMLString&)
{
}

void FastInfosetWriter::startCDATA()
{
    if (_states.back() == CDATA)
        throw FISException("Cannot nest CDATA sections");
    pushState(CDATA);
}

// Takes whatever state is innermost; a caller that leaves out startCDATA gets text that is not CDATA and no error here.
void FastInfosetWriter::endCDATA()
{
    checkBalance();
    Event event(_stream);
    handleEncodedData();
    popState();
    event.done();
}

void FastInfosetWriter::comment(const XML::XMLChar ch[], int start, int length)
{
    Event event(_stream);
    handleEncodedData();
    _stream.complete(false);
    _stream.write(0b11100010, 8);
    _items->writeComment({ch + start, static_cast<std::size_t>(length)});
    event.done();
}

void FastInfosetWriter::notationDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                                     const XML::XMLString* systemId)
{
    if (_states.back() != UNINITIALIZED)
        Bugcheck::assertion("_states.back() == UNINITIALIZED", "src/FastInfosetWriter", 354);
    _notations.emplace_back(name, publicId ? *publicId : std::string(), systemId ? *systemId : std::string());
}

void FastInfosetWriter::unparsedEntityDecl(const XML::XMLString& name, const XML::XMLString* publicId,
                                           const XML::XMLString& systemId, const XML::XMLString& notationName)
{
    if (_states.back() != UNINITIALIZED)
        Bugcheck::assertion("_states.back() == UNINITIALIZED", "src/FastInfosetWriter", 361);
    _unparsedEntities.emplace_back(name, publicId ? *publicId : std::string(), systemId, notationName);
}

void FastInfosetWriter::startElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                     const XML::XMLString& qname)
{
    startElement(uri, localName, qname, NO_ATTRIBUTES);
}

void FastInfosetWriter::emptyElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                     const XML::XMLString& qname)
{
    emptyElement(uri, localName, qname, NO_ATTRIBUTES);
}

void FastInfosetWriter::emptyElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                     const XML::XMLString& qname, const XML::Attributes& attributes)
{
    startElement(uri, localName, qname, attributes);
    endElement(uri, localName, qname);
}

void FastInfosetWriter::dataElement(const XML::XMLString& uri, const XML::XMLString& localName,
                                    const XML::XMLString& qname, const XML::XMLString& data,
                                    const XML::XMLString& attr1Name, const XML::XMLString& attr1Value,
                                    const XML::XMLString& attr2Name, const XML::XMLString& attr2Value,
                                    const XML::XMLString& attr3Name, const XML::XMLString& attr3Value)
{
    XML::AttributesImpl attributes;
    const auto add = [&attributes](const XML::XMLString& name, const XML::XMLString& value)
    {
        if (!name.empty())
            attributes.addAttribute(XML::XMLString(), XML::XMLString(), name, "CDATA", value);
    };
    add(attr1Name, attr1Value);
    add(attr2Name, attr2Value);
    add(attr3Name, attr3Value);
    if (data.empty())
    {
        emptyElement(uri, localName, qname, attributes);
        return;
    }
    startElement(uri, localName, qname, attributes);
    characters(data);
    endElement(uri, localName, qname);
}

void FastInfosetWriter::startFragment()
{
    throw FISException("startFragment() not allowed");
}

void FastInfosetWriter::endFragment()
{
    throw FISException("endFragment() not allowed");
}

void FastInfosetWriter::pushState(State state)
{
    _states.push_back(state);
    _strings->setInCDATA(state == CDATA);
}

void FastInfosetWriter::popState()
{
    _states.pop_back();
    _strings->setInCDATA(_states.back() == CDATA);
}

// An end event must not take the state in which the writer was made.
void FastInfosetWriter::checkBalance() const
{
    if (_states.size() <= 1)
        throw FISException("Unbalanced end event");
}

} // namespace Vesk::FastInfoset
