// SPDX-License-Identifier: MIT
#include "Vesk/XML/InputSource.h"

namespace Vesk::XML
{
InputSource::InputSource(const XMLString& systemId)
    : _systemId(systemId)
{
}

InputSource::InputSource(std::istream& byteStream)
    : _byteStream(&byteStream)
{
}

void InputSource::setPublicId(const XMLString& publicId)
{
    _publicId = publicId;
}

void InputSource::setSystemId(const XMLString& systemId)
{
    _systemId = systemId;
}

void InputSource::setEncoding(const XMLString& encoding)
{
    _encoding = encoding;
}
} // namespace Vesk::XML
