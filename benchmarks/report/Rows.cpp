// SPDX-License-Identifier: MIT
#include "Rows.h"
#include <algorithm>
#include <stdexcept>

namespace Vesk::Benchmarks
{

namespace
{

const char EXPAT[] = "expat";
const char EXPAT_FRESH[] = "expat, fresh parser";
const char SAX[] = "SAXParser";
const char SAX_FRESH[] = "SAXParser, fresh parser";
const char FIS[] = "FastInfosetParser, vector";
const char FIS_FRESH[] = "FastInfosetParser, vector, fresh parser";
const char FIS_STREAM[] = "FastInfosetParser, vector, stream";
const char FLOOR_COPIES[] = "floor: replay, attributes copied";
const char FLOOR_REFERENCES[] = "floor: replay, attributes referenced";
const char WRITER_MAP[] = "FastInfosetWriter, map";
const char WRITER_HASH[] = "FastInfosetWriter, hash";
const char LIBXML_WRITER[] = "libxml2 text writer";
const char ESCAPER[] = "bare text escaper";
const char TO_FIS[] = "Converter::convertToFIS";
const char TO_XML[] = "Converter::convertToXML";

constexpr Tables VECTOR = FastInfoset::DocumentVocabulary::VOC_VECTOR;
constexpr Tables MAP = FastInfoset::DocumentVocabulary::VOC_MAP;
constexpr Tables HASH = FastInfoset::DocumentVocabulary::VOC_HASH;

// Turns a factory function and its arguments into the factory of a row.
template <class Factory, class... Arguments>
auto with(Factory factory, Arguments... arguments)
{
    return [=](Workload& workload)
    {
        return factory(workload, arguments...);
    };
}

Row reader(const std::string& name, Tables tables, Input input, Lifetime lifetime)
{
    return {Row::READER, name, lifetime == Lifetime::REUSED ? EXPAT : EXPAT_FRESH,
            with(makeFastInfosetParser, tables, input, lifetime)};
}

Row limitReader(const std::string& name, int maxIndexedLength)
{
    return {Row::READER, name, EXPAT, with(makeLimitReader, maxIndexedLength)};
}

} // namespace

const std::vector<Row>& rows()
{
    static const std::vector<Row> ROWS = {
        {Row::TEXT_READER, EXPAT, EXPAT, with(makeExpat, Lifetime::REUSED)},
        {Row::TEXT_READER, EXPAT_FRESH, EXPAT_FRESH, with(makeExpat, Lifetime::FRESH)},
        {Row::TEXT_READER, "libxml2 SAX2", EXPAT, with(makeLibXML)},
        {Row::TEXT_READER, "pugixml, load and walk", EXPAT, with(makePugixml)},
        {Row::TEXT_READER, SAX, EXPAT, with(makeSAXParser, Lifetime::REUSED)},
        {Row::TEXT_READER, SAX_FRESH, EXPAT_FRESH, with(makeSAXParser, Lifetime::FRESH)},
        reader(FIS, VECTOR, Input::MEMORY, Lifetime::REUSED),
        reader(FIS_FRESH, VECTOR, Input::MEMORY, Lifetime::FRESH),
        reader("FastInfosetParser, map", MAP, Input::MEMORY, Lifetime::REUSED),
        reader("FastInfosetParser, map, fresh parser", MAP, Input::MEMORY, Lifetime::FRESH),
        reader("FastInfosetParser, hash", HASH, Input::MEMORY, Lifetime::REUSED),
        reader("FastInfosetParser, hash, fresh parser", HASH, Input::MEMORY, Lifetime::FRESH),
        reader(FIS_STREAM, VECTOR, Input::STREAM, Lifetime::REUSED),
        reader("FastInfosetParser, vector, stream, fresh parser", VECTOR, Input::STREAM, Lifetime::FRESH),
        limitReader("FastInfosetParser, vector, limit 0", 0),
        limitReader("FastInfosetParser, vector, limit 64", 64),
        limitReader("FastInfosetParser, vector, no limit", NO_LIMIT),
        {Row::FLOOR, FLOOR_REFERENCES, EXPAT, with(makeFloor, EventStore::REFERENCES)},
        {Row::FLOOR, FLOOR_COPIES, EXPAT, with(makeFloor, EventStore::COPIES)},
        {Row::TEXT_WRITER, LIBXML_WRITER, EXPAT, with(makeLibXMLWriter)},
        {Row::TEXT_WRITER, ESCAPER, EXPAT, with(makeEscaper)},
        {Row::WRITER, WRITER_MAP, EXPAT, with(makeFastInfosetWriter, MAP)},
        {Row::WRITER, WRITER_HASH, EXPAT, with(makeFastInfosetWriter, HASH)},
        {Row::WRITER, "FastInfosetWriter, map, file", EXPAT, with(makeFastInfosetFileWriter, TemporaryFile::OBEYED)},
        {Row::WRITER, "FastInfosetWriter, map, file that ignores flushes", EXPAT,
         with(makeFastInfosetFileWriter, TemporaryFile::IGNORED)},
        {Row::CONVERTER, TO_FIS, EXPAT_FRESH, with(makeToFISConverter)},
        {Row::CONVERTER, TO_XML, EXPAT_FRESH, with(makeToXMLConverter)},
    };
    return ROWS;
}

std::size_t rowIndex(const std::string& name)
{
    const auto found = std::find_if(rows().begin(), rows().end(), [&name](const Row& row) { return row.name == name; });
    if (found == rows().end())
        throw std::logic_error("no row " + name);
    return static_cast<std::size_t>(found - rows().begin());
}

const std::vector<Goal>& goals()
{
    static const std::vector<Goal> GOALS = {
        {"read from memory", FIS, EXPAT, Goal::DOCUMENTS, 10},
        {"the same, by the floor that fills in copies", FIS, FLOOR_COPIES, Goal::DOCUMENTS, 0.5},
        {"the same, by the floor that fills in references", FIS, FLOOR_REFERENCES, Goal::DOCUMENTS, 0.5},
        {"read small documents, reused parser", FIS, EXPAT, Goal::FOLDERS, 15},
        {"read small documents, a fresh parser for each", FIS_FRESH, EXPAT_FRESH, Goal::FOLDERS, 5},
        {"read from a stream, by memory", FIS_STREAM, FIS, Goal::DOCUMENTS, 0.8},
        {"write, map tables", WRITER_MAP, LIBXML_WRITER, Goal::DOCUMENTS, 4},
        {"write, hash tables", WRITER_HASH, LIBXML_WRITER, Goal::DOCUMENTS, 4},
        {"write, map tables", WRITER_MAP, ESCAPER, Goal::DOCUMENTS, 1},
        {"write, hash tables", WRITER_HASH, ESCAPER, Goal::DOCUMENTS, 1},
        {"write small documents, map tables", WRITER_MAP, LIBXML_WRITER, Goal::FOLDERS, 2},
        {"write small documents, hash tables", WRITER_HASH, LIBXML_WRITER, Goal::FOLDERS, 2},
        {"read XML text", SAX, EXPAT, Goal::DOCUMENTS, 0.85},
        {"XML text to Fast Infoset", TO_FIS, SAX_FRESH, Goal::DOCUMENTS, 0.8},
        {"Fast Infoset to XML text", TO_XML, EXPAT, Goal::DOCUMENTS, 3},
    };
    return GOALS;
}

} // namespace Vesk::Benchmarks
