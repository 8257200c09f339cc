// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_ITEMWRITER_H
#define VESK_FASTINFOSET_ITEMWRITER_H

#include <string>
#include <string_view>

namespace Vesk::FastInfoset
{

class BitStreamWriter;
class StringWriter;

/// Writes the rarer information items; ItemParser reads them. Operations that start behind the identification bits of
/// their structure say at which bit offset that is, and throw FISEncodingException at another.
class ItemWriter
{
public:
    /// Both are borrowed.
    ItemWriter(BitStreamWriter& stream, StringWriter& strings);

    /// On an octet boundary.
    void writeComment(std::string_view text);

    /// On an octet boundary.
    void writeProcessingInstruction(const std::string& target, const std::string& data);

    /// At bit offset 6. Empty identifiers are left out.
    void writeDocumentTypeDeclaration(const std::string& publicId, const std::string& systemId);

    /// At bit offset 6. Null identifiers are left out.
    void writeNotation(const std::string& name, const std::string* publicId, const std::string* systemId);

    /// At bit offset 7. A null public identifier is left out.
    void writeUnparsedEntity(const std::string& name, const std::string* publicId, const std::string& systemId,
                             const std::string& notationName);

private:
    BitStreamWriter& _stream;
    StringWriter& _strings;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_ITEMWRITER_H
