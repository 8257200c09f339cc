// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/OctetLocator.h"
#include "Vesk/FastInfoset/BitStreamReader.h"
#include "Vesk/XML/InputSource.h"

namespace Vesk::FastInfoset
{

namespace
{

constexpr int UNKNOWN = -1;

} // namespace

const XML::XMLString& OctetLocator::getPublicId() const
{
    return _publicId;
}

const XML::XMLString& OctetLocator::getSystemId() const
{
    return _systemId;
}

int OctetLocator::getLineNumber() const
{
    return UNKNOWN;
}

int OctetLocator::getColumnNumber() const
{
    return UNKNOWN;
}

unsigned long OctetLocator::octetOffset() const
{
    return _reader ? _reader->octetPosition() : _endOffset;
}

void OctetLocator::begin(const BitStreamReader& reader, const XML::InputSource* source)
{
    _reader = &reader; // first, as end() follows also if there is no memory for the identifiers
    _publicId = source ? source->getPublicId() : XML::XMLString();
    _systemId = source ? source->getSystemId() : XML::XMLString();
}

void OctetLocator::end()
{
    _endOffset = _reader->octetPosition();
    _reader = nullptr;
}

} // namespace Vesk::FastInfoset
