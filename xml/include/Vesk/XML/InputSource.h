// SPDX-License-Identifier: MIT
#ifndef VESK_XML_INPUTSOURCE_H
#define VESK_XML_INPUTSOURCE_H

#include "Vesk/XML/XMLString.h"
#include <iosfwd>

namespace Vesk::XML
{
/// What a reader reads: a stream, or a system identifier that leads to one. Streams are borrowed.
class VESK_XML_API InputSource
{
public:
    /// Nothing to read yet; the setters name it.
    InputSource() = default;
    /// What the system identifier leads to.
    explicit InputSource(const XMLString& systemId);
    /// A stream of octets, which is borrowed.
    explicit InputSource(std::istream& byteStream);

    /// The public identifier, for messages only.
    void setPublicId(const XMLString& publicId);
    const XMLString& getPublicId() const { return _publicId; }

    /// The URI or path of the document. It names the document in messages, and external entities are resolved against
    /// it.
    void setSystemId(const XMLString& systemId);
    const XMLString& getSystemId() const { return _systemId; }

    /// A stream of octets in the document's own encoding; null if there is none.
    void setByteStream(std::istream* byteStream) { _byteStream = byteStream; }
    std::istream* getByteStream() const { return _byteStream; }

    /// A stream of UTF-8 text; null if there is none. Readers prefer the byte stream.
    void setCharacterStream(std::istream* characterStream) { _characterStream = characterStream; }
    std::istream* getCharacterStream() const { return _characterStream; }

    /// The encoding of the byte stream, overriding what the document says; empty if unknown.
    void setEncoding(const XMLString& encoding);
    const XMLString& getEncoding() const { return _encoding; }

private:
    XMLString _publicId;
    XMLString _systemId;
    XMLString _encoding;
    std::istream* _byteStream = nullptr;
    std::istream* _characterStream = nullptr;
};
} // namespace Vesk::XML

#endif // VESK_XML_INPUTSOURCE_H
