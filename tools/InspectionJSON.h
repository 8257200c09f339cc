// SPDX-License-Identifier: MIT
#ifndef VESKFI_INSPECTIONJSON_H
#define VESKFI_INSPECTIONJSON_H

#include "InspectionWriter.h"
#include <ostream>
#include <string>
#include <string_view>

namespace Vesk::Tool
{

/// Shows an inspection for programs: one JSON object a line, nothing shortened. Members that mean nothing for a part are
/// left out.
class InspectionJSON : public InspectionWriter
{
public:
    /// The output is borrowed.
    explicit InspectionJSON(std::ostream& output);

    void part(const InspectedPart& inspected) override;
    void octetsBehind(unsigned long offset, unsigned long octetCount, std::string_view firstOctets) override;
    void failure(unsigned long bit, std::string_view octets, const std::string& reason,
                 const std::string& path) override;

private:
    std::ostream& _output;
};

} // namespace Vesk::Tool

#endif // VESKFI_INSPECTIONJSON_H
