// SPDX-License-Identifier: MIT
#ifndef VESKFI_INSPECTOR_H
#define VESKFI_INSPECTOR_H

#include "DocumentReader.h"
#include "InspectionWriter.h"
#include "RecordingStream.h"
#include "Vesk/FastInfoset/StructureObserver.h"
#include <istream>
#include <string>
#include <vector>

namespace Vesk::Tool
{

/// Reads a document and hands every part of it, with its octets and what is around it, to a writer.
class Inspector : private FastInfoset::StructureObserver
{
public:
    /// The writer is borrowed.
    explicit Inspector(InspectionWriter& writer);

    /// Throws what DocumentReader throws, after the writer has been told.
    void inspect(std::istream& input, const std::string& file);

private:
    struct OpenStructure
    {
        Structure structure;
        std::size_t depth;            // of the parts in it
        unsigned int stringCount = 0; // of the strings that it holds itself
        unsigned char startOctet = 0; // tells which of its strings are there
    };

    void startStructure(Structure structure) override;
    void part(const Part& part) override;
    void endStructure(Structure structure) override;
    void tellOctetsBehind(RecordingStream& octets);

    InspectionWriter& _writer;
    DocumentReader _reader;
    RecordingStream* _octets = nullptr;
    std::vector<OpenStructure> _open;
};

} // namespace Vesk::Tool

#endif // VESKFI_INSPECTOR_H
