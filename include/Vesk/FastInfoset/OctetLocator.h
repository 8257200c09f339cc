// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_OCTETLOCATOR_H
#define VESK_FASTINFOSET_OCTETLOCATOR_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/XML/Locator.h"

namespace Vesk::XML
{
class InputSource;
}

namespace Vesk::FastInfoset
{

class BitStreamReader;

/// The locator that a FastInfosetParser lends to its content handler. A binary document has no lines, so both line and
/// column are -1, unknown; a handler that wants the place in octets asks for this class:
///
///     _locator = dynamic_cast<const OctetLocator*>(locator); // in setDocumentLocator
class VESK_FASTINFOSET_API OctetLocator : public XML::Locator
{
public:
    /// The identifiers of the input source, empty if it has none or the document is in memory.
    const XML::XMLString& getPublicId() const override;
    const XML::XMLString& getSystemId() const override;

    /// -1.
    int getLineNumber() const override;
    int getColumnNumber() const override;

    /// How many octets of the document have been read, counted from the first one handed to the parser, so that it
    /// includes a leading XML declaration. During an event this is the offset of the octet behind the structure that
    /// caused the event: behind the name and attributes for startElement, behind the terminator for endElement. Two
    /// terminators in one octet are read at once. After a parse it tells where that ended; see
    /// FastInfosetParser::octetOffset.
    unsigned long octetOffset() const;

private:
    friend class FastInfosetParser;

    void begin(const BitStreamReader& reader, const XML::InputSource* source);
    void end();

    XML::XMLString _publicId;
    XML::XMLString _systemId;
    const BitStreamReader* _reader = nullptr; // null when nothing is being parsed
    unsigned long _endOffset = 0;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_OCTETLOCATOR_H
