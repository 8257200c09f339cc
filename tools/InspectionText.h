// SPDX-License-Identifier: MIT
#ifndef VESKFI_INSPECTIONTEXT_H
#define VESKFI_INSPECTIONTEXT_H

#include "InspectionWriter.h"
#include "Terminal.h"
#include <ostream>
#include <string>
#include <string_view>

namespace Vesk::Tool
{

/// Shows an inspection as lines for people: the offset of a part, with the bit if it starts within an octet, its octets in
/// hexadecimal, and what it is, indented by nesting. Octets that a part shares with its neighbours are shown as bits.
class InspectionText : public InspectionWriter
{
public:
    /// The output is borrowed. isFull: nothing is shortened.
    InspectionText(std::ostream& output, const Terminal& terminal, bool isFull);

    void part(const InspectedPart& inspected) override;
    void octetsBehind(unsigned long offset, unsigned long octetCount, std::string_view firstOctets) override;
    void failure(unsigned long bit, std::string_view octets, const std::string& reason,
                 const std::string& path) override;

private:
    using Part = FastInfoset::StructureObserver::Part;

    void line(unsigned long beginBit, unsigned long endBit, std::string_view octets, std::size_t depth,
              const std::string& description);
    std::string descriptionOf(const InspectedPart& inspected) const;
    static std::string formOf(const Part& part);
    std::string placeOf(const Part& part) const;
    std::string heading(const std::string& text) const;
    std::string faint(const std::string& text) const;
    std::string quotedText(const std::string& text) const;
    std::size_t shownCharacters() const;

    std::ostream& _output;
    const Terminal _terminal;
    const bool _isFull;
};

} // namespace Vesk::Tool

#endif // VESKFI_INSPECTIONTEXT_H
