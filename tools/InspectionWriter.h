// SPDX-License-Identifier: MIT
#ifndef VESKFI_INSPECTIONWRITER_H
#define VESKFI_INSPECTIONWRITER_H

#include "Vesk/FastInfoset/StructureObserver.h"
#include <cstddef>
#include <string>
#include <string_view>

namespace Vesk::Tool
{

/// A part of a document and what is around it. All is good during the call only.
struct InspectedPart
{
    const FastInfoset::StructureObserver::Part& part;
    FastInfoset::StructureObserver::Structure structure; ///< the innermost one that it belongs to
    std::size_t depth;                                   ///< how far in it stands
    std::string_view octets;                             ///< all that it has bits in
    std::string role;                                    ///< of a string: "value", "public identifier"
    std::string elementName;                             ///< of the innermost open element
};

/// Shows what an inspection finds, as it finds it.
class InspectionWriter
{
public:
    virtual void part(const InspectedPart& part) = 0;

    /// The document has ended, and so many octets are left behind it, of which the first ones are shown.
    virtual void octetsBehind(unsigned long offset, unsigned long octetCount, std::string_view firstOctets) = 0;

    /// From this bit on the document cannot be read. The octets are those that come next, as far as there are any.
    virtual void failure(unsigned long bit, std::string_view octets, const std::string& reason,
                         const std::string& path) = 0;

protected:
    ~InspectionWriter() = default;
};

} // namespace Vesk::Tool

#endif // VESKFI_INSPECTIONWRITER_H
