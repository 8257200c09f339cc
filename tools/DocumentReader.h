// SPDX-License-Identifier: MIT
#ifndef VESKFI_DOCUMENTREADER_H
#define VESKFI_DOCUMENTREADER_H

#include "ElementPath.h"
#include "Failure.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/StructureObserver.h"
#include <exception>
#include <istream>
#include <string>

namespace Vesk::Tool
{

/// A document cannot be read any further: "file: octet 5: /a/b[2]: reason".
class DocumentFailure : public Failure
{
public:
    DocumentFailure(const Failure& failure, const std::string& reason, unsigned long bit);

    /// Where the part begins that could not be read, counted from the start of the document.
    unsigned long bit() const { return _bit; }

    /// The reason alone.
    const std::string& reason() const { return _reason; }

private:
    std::string _reason;
    unsigned long _bit;
};

/// Reads a document for an observer, knows where it is and tells so when the document ends too soon or wrongly.
class DocumentReader : private FastInfoset::StructureObserver
{
public:
    /// The observer is borrowed; null where only the place of failures is of interest.
    explicit DocumentReader(FastInfoset::StructureObserver* observer = nullptr);

    /// For further handlers.
    FastInfoset::FastInfosetParser& parser() { return _parser; }

    /// Reads the document. Throws DocumentFailure for what is wrong with it, FileError for what is wrong with the input.
    void read(std::istream& input, const std::string& file);

    /// The bit behind the last part that was read.
    unsigned long endBit() const { return _endBit; }

    const ElementPath& path() const { return _path; }

private:
    void startStructure(Structure structure) override;
    void part(const Part& part) override;
    void endStructure(Structure structure) override;
    [[noreturn]] void throwFailure(const std::string& file, const std::exception& exception) const;

    FastInfoset::FastInfosetParser _parser;
    FastInfoset::StructureObserver* const _observer;
    ElementPath _path;
    unsigned long _itemBit = 0; // where the last child of an element or the document begins
    unsigned long _endBit = 0;
    unsigned long _missingEntryBit = 0; // where an index stands that has no entry, if isEntryMissing
    bool _isEntryMissing = false;
};

} // namespace Vesk::Tool

#endif // VESKFI_DOCUMENTREADER_H
