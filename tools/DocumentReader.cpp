// SPDX-License-Identifier: MIT
#include "DocumentReader.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXException.h"

namespace Vesk::Tool
{

DocumentFailure::DocumentFailure(const Failure& failure, const std::string& reason, unsigned long bit)
    : Failure(failure),
      _reason(reason),
      _bit(bit)
{
}

DocumentReader::DocumentReader(FastInfoset::StructureObserver* observer)
    : _observer(observer)
{
    _parser.setStructureObserver(this);
}

void DocumentReader::read(std::istream& input, const std::string& file)
{
    XML::InputSource source(input);
    try
    {
        _parser.parse(&source);
    }
    catch (const Failure&)
    {
        throw; // of the input, or of what the observer writes to
    }
    catch (const std::exception& exception)
    {
        throwFailure(file, exception);
    }
}

void DocumentReader::startStructure(Structure structure)
{
    switch (structure)
    {
    case Structure::ELEMENT:
    case Structure::CHARACTER_CHUNK:
    case Structure::PROCESSING_INSTRUCTION:
    case Structure::COMMENT:
    case Structure::DOCUMENT_TYPE_DECLARATION:
        _itemBit = _endBit;
        break;
    default:
        break;
    }
    _path.startStructure(structure);
    if (_observer)
        _observer->startStructure(structure);
}

void DocumentReader::part(const Part& part)
{
    // An index without an entry is told of before the name that it belongs to turns out not to be there.
    if (part.kind == Part::STRING && !part.text && !_isEntryMissing)
    {
        _isEntryMissing = true;
        _missingEntryBit = part.beginBit;
    }
    _endBit = part.endBit;
    _path.part(part);
    if (_observer)
        _observer->part(part);
}

void DocumentReader::endStructure(Structure structure)
{
    _path.endStructure(structure);
    if (_observer)
        _observer->endStructure(structure);
}

void DocumentReader::throwFailure(const std::string& file, const std::exception& exception) const
{
    const Failure plain = Failure::of(file, exception);
    if (plain.status() != ExitStatus::MALFORMED && plain.status() != ExitStatus::MISSING)
        throw plain; // no fault of the document

    // What a handler refuses has been read before.
    unsigned long bit = _endBit;
    if (dynamic_cast<const XML::SAXException*>(&exception))
        bit = _itemBit;
    else if (_isEntryMissing && dynamic_cast<const std::out_of_range*>(&exception))
        bit = _missingEntryBit;
    const std::string place = file + ": octet " + std::to_string(bit / 8) + ": " + _path.text();
    const Failure failure = Failure::of(place, exception);
    throw DocumentFailure(failure, std::string(failure.what()).substr(place.size() + 2), bit);
}

} // namespace Vesk::Tool
