// SPDX-License-Identifier: MIT
#include "ItemWriter.h"
#include "StringWriter.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/FISEncodingException.h"

namespace Vesk::FastInfoset
{

namespace
{

void checkOffset(const BitStreamWriter& stream, int offset, const char* message)
{
    if (stream.bitOffset() != offset)
        throw FISEncodingException(message);
}

} // namespace

ItemWriter::ItemWriter(BitStreamWriter& stream, StringWriter& strings)
    : _stream(stream),
      _strings(strings)
{
}

void ItemWriter::writeComment(std::string_view text)
{
    checkOffset(_stream, 0, "Illegal startposition for a Comment value");
    _strings.writeNonIdentifyingStringOrIndex(text, DocumentVocabulary::OTHER_STRING);
}

void ItemWriter::writeProcessingInstruction(const std::string& target, const std::string& data)
{
    _strings.writeIdentifyingStringOrIndex(target, DocumentVocabulary::OTHER_NCNAME);
    _strings.writeNonIdentifyingStringOrIndex(data, DocumentVocabulary::OTHER_STRING);
}

// System identifier present, public identifier present, then those that are.
void ItemWriter::writeDocumentTypeDeclaration(const std::string& publicId, const std::string& systemId)
{
    checkOffset(_stream, 6, "Illegal startposition for a DocumentTypeDeclaration value");
    _stream.write(!systemId.empty());
    _stream.write(!publicId.empty());
    if (!systemId.empty())
        _strings.writeIdentifyingStringOrIndex(systemId, DocumentVocabulary::OTHER_URI);
    if (!publicId.empty())
        _strings.writeIdentifyingStringOrIndex(publicId, DocumentVocabulary::OTHER_URI);
}

// System identifier present, public identifier present, name, then the identifiers that are present.
void ItemWriter::writeNotation(const std::string& name, const std::string* publicId, const std::string* systemId)
{
    checkOffset(_stream, 6, "Illegal startposition for a Notation value");
    _stream.write(systemId != nullptr);
    _stream.write(publicId != nullptr);
    _strings.writeIdentifyingStringOrIndex(name, DocumentVocabulary::OTHER_NCNAME);
    if (systemId)
        _strings.writeIdentifyingStringOrIndex(*systemId, DocumentVocabulary::OTHER_URI);
    if (publicId)
        _strings.writeIdentifyingStringOrIndex(*publicId, DocumentVocabulary::OTHER_URI);
}

// Public identifier present, name, system identifier, public identifier if present, notation name.
void ItemWriter::writeUnparsedEntity(const std::string& name, const std::string* publicId, const std::string& systemId,
                                     const std::string& notationName)
{
    checkOffset(_stream, 7, "Illegal startposition for an UnparsedEntity value");
    _stream.write(publicId != nullptr);
    _strings.writeIdentifyingStringOrIndex(name, DocumentVocabulary::OTHER_NCNAME);
    _strings.writeIdentifyingStringOrIndex(systemId, DocumentVocabulary::OTHER_URI);
    if (publicId)
        _strings.writeIdentifyingStringOrIndex(*publicId, DocumentVocabulary::OTHER_URI);
    _strings.writeIdentifyingStringOrIndex(notationName, DocumentVocabulary::OTHER_NCNAME);
}

} // namespace Vesk::FastInfoset
