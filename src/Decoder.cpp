// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/Decoder.h"
#include "Observation.h"
#include "PrimitiveCode.h"
#include "Vesk/FastInfoset/Encoder.h"
#include "Vesk/FastInfoset/FISEncodingException.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FISParseException.h"

namespace Vesk::FastInfoset
{

namespace
{

void readXMLDeclaration(BitStreamReader& reader, std::string& xmlDeclaration)
{
    xmlDeclaration = "<?";
    while (xmlDeclaration.back() != '>')
    {
        unsigned short octet = 0;
        if (!reader.read(octet, 8))
            throw FISParseException("Unexpected end of stream while parsing XML declaration");
        xmlDeclaration += static_cast<char>(octet);
    }
}

unsigned short readHeaderWord(BitStreamReader& reader)
{
    unsigned short word = 0;
    if (!reader.read(word, 16))
        throw FISParseException("Unexpected end of stream while parsing document header");
    return word;
}

} // namespace

void Decoder::documentPreHeader(BitStreamReader& reader, std::string& xmlDeclaration, Observed* observed)
{
    xmlDeclaration.clear();
    unsigned short word = readHeaderWord(reader);
    if (word == Encoder::XMLDECLARATION)
    {
        readXMLDeclaration(reader, xmlDeclaration);
        if (observed)
            observed->xmlDeclaration(xmlDeclaration);
        word = readHeaderWord(reader);
    }
    if (word != Encoder::DOCUMENTSTART)
        throw FISException("Not a valid Fast Infoset document (invalid header)");
    if (observed)
        observed->part(Observed::Part::IDENTIFICATION);
    if (readHeaderWord(reader) != 1)
        throw FISException("Unsupported Fast Infoset document version");
    if (observed)
        observed->part(Observed::Part::FORMAT_VERSION);
    reader.skip(1);
}

void Decoder::integer(BitStreamReader& reader, unsigned int& value)
{
    value = 0;
    switch (reader.bitOffset())
    {
    case 0:
        throw FISEncodingException("Illegal bit position 0: Integers can never start there");
    case 1:
        value = PrimitiveCode::integerOnSecondBit(reader, reader.readRestOfOctet());
        break;
    case 2:
        value = PrimitiveCode::integerOnThirdBit(reader, reader.readRestOfOctet());
        break;
    case 3:
        value = PrimitiveCode::integerOnFourthBit(reader, reader.readRestOfOctet());
        break;
    case 4:
    case 6:
        value = PrimitiveCode::smallInteger(reader);
        break;
    default:
        throw FISEncodingException("Illegal bit position: No Integers are allowed to be read from pos 5 or 7.");
    }
}

void Decoder::nonEmptyStringLength(BitStreamReader& reader, unsigned long& octetCount)
{
    octetCount = 0;
    const int offset = reader.bitOffset();
    if (offset != 1 && offset != 4 && offset != 6)
        throw FISEncodingException("illegal position for nonEmptyOctetString encoding");
    octetCount = PrimitiveCode::stringLength(reader, reader.readRestOfOctet(), 8 - offset);
}

void Decoder::nonEmptyOctetString(BitStreamReader& reader, std::string& octets)
{
    unsigned long octetCount = 0;
    nonEmptyStringLength(reader, octetCount);
    if (!reader.read(octets, octetCount))
        PrimitiveCode::throwEndOfString(reader);
}

// 0nnnnnnn for 1 to 128, or 1???nnnn and two octets for 129 and more. The bits ??? are not looked at.
void Decoder::lengthOfSequence(BitStreamReader& reader, unsigned int& count)
{
    count = 0;
    if (reader.bitOffset() != 0)
        throw FISEncodingException("Illegal startposition for a lengthOfSequence value");
    unsigned char longForm = 0;
    if (!reader.peek(longForm, 1) || !reader.read(count, longForm ? 24 : 8))
        throw FISParseException("Unexpected end of stream while parsing sequence length");
    count = longForm ? (count & 0xFFFFF) + 129 : count + 1;
}

QualifiedNameEntry Decoder::nameSurrogate(BitStreamReader& reader)
{
    if (reader.bitOffset() != 6)
        throw FISEncodingException("Illegal startposition for a nameSurrogate value");
    bool hasPrefix = false;
    bool hasNamespaceName = false;
    if (!reader.read(hasPrefix) || !reader.read(hasNamespaceName))
        throw FISParseException("Unexpected end of stream while reading surrogate");

    const auto paddedInteger = [&reader]
    {
        bool padding = false;
        if (!reader.read(padding))
            throw FISParseException("Unexpected end of stream while reading surrogate");
        return PrimitiveCode::integerOnSecondBit(reader, reader.readRestOfOctet());
    };
    const unsigned int prefix = hasPrefix ? paddedInteger() : QualifiedNameEntry::ABSENT;
    const unsigned int namespaceName = hasNamespaceName ? paddedInteger() : QualifiedNameEntry::ABSENT;
    const unsigned int localName = paddedInteger();
    return QualifiedNameEntry(prefix, namespaceName, localName);
}

} // namespace Vesk::FastInfoset
