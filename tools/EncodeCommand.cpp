// SPDX-License-Identifier: MIT
#include "EncodeCommand.h"
#include "Vesk/FastInfoset/Converter.h"

namespace Vesk::Tool
{

namespace
{

// Longer strings seldom repeat, and the table of each reader would have to hold them.
constexpr int MAX_INDEXED_OCTETS = 16;
constexpr int KEEP_WHITE_SPACE = 0;

} // namespace

const char* EncodeCommand::examples() const
{
    return "Example:\n  veskfi encode document.xml -o document.finf\n";
}

void EncodeCommand::convert(std::istream& input, std::ostream& output)
{
    FastInfoset::Converter::convertToFIS(input, output, MAX_INDEXED_OCTETS, KEEP_WHITE_SPACE);
}

} // namespace Vesk::Tool
