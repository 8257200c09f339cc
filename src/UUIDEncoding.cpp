// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/UUIDEncoding.h"
#include "OctetBlocks.h"
#include "TypedEncodingImpl.h"
#include "Vesk/FastInfoset/Decoder.h"
#include "Vesk/FastInfoset/Encoder.h"

namespace Vesk::FastInfoset
{

template class TypedEncoding<UUIDEncoding, UUID>;

namespace
{

constexpr std::size_t UUID_OCTETS = std::tuple_size<UUID::Octets>::value;

bool isLowerCase(char character)
{
    return character >= 'a' && character <= 'z';
}

} // namespace

int UUIDEncoding::type() const
{
    return TYPE;
}

bool UUIDEncoding::parseValue(std::string_view token, UUID& value)
{
    return std::none_of(token.begin(), token.end(), isLowerCase) && UUID::tryParse(token, value);
}

void UUIDEncoding::appendValue(std::string& text, const UUID& value)
{
    for (const char character : value.toString())
        text += isLowerCase(character) ? static_cast<char>(character - 'a' + 'A') : character;
}

std::size_t UUIDEncoding::octetCount(std::size_t valueCount)
{
    return UUID_OCTETS * valueCount;
}

void UUIDEncoding::readValues(BitStreamReader& reader, std::vector<UUID>& values)
{
    unsigned long octetCount = 0;
    Decoder::nonEmptyStringLength(reader, octetCount);
    if (octetCount % UUID_OCTETS != 0)
        throw FISEncodingException("Illegal size entry for Vesk::UUID value");

    readOctetBlocks(reader, octetCount, "UUID",
                    [&values](const char* octets, std::size_t blockOctets)
                    {
                        for (const char* end = octets + blockOctets; octets != end; octets += UUID_OCTETS)
                        {
                            UUID::Octets uuid;
                            std::copy_n(octets, UUID_OCTETS, uuid.begin());
                            values.emplace_back(uuid);
                        }
                    });
}

void UUIDEncoding::writeValues(BitStreamWriter& writer, const std::vector<UUID>& values)
{
    Encoder::nonEmptyStringLength(writer, octetCount(values.size()));
    OctetBlockWriter blocks(writer);
    for (const UUID& value : values)
        std::copy(value.octets().begin(), value.octets().end(), blocks.next(UUID_OCTETS));
    blocks.flush();
}

} // namespace Vesk::FastInfoset
