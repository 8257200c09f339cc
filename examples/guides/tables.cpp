// SPDX-License-Identifier: MIT
//
// What the three implementations of the tables can do.
//
//   tables

#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include <exception>
#include <iostream>
#include <sstream>
#include <string>

using Vesk::FastInfoset::DocumentVocabulary;
using Vesk::FastInfoset::FastInfosetParser;
using Vesk::FastInfoset::FastInfosetWriter;

namespace
{

void writeShortComments(FastInfosetWriter& writer, int count)
{
    writer.startDocument();
    writer.startElement("", "a", "a");
    for (int i = 0; i < count; ++i)
    {
        const std::string comment = "comment " + std::to_string(i);
        writer.comment(comment.data(), 0, static_cast<int>(comment.size()));
    }
    writer.endElement("", "a", "a");
    writer.endDocument();
}

bool hashTablesAreLimited()
{
    std::ostringstream out;
    FastInfosetWriter writer(out); // hash tables
    try
    {
        writeShortComments(writer, 19);
        return false;
    }
    catch (const Vesk::PoolOverflowException& exception)
    {
        std::cout << "hash tables: " << exception.message() << '\n';
        return true;
    }
}

bool mapTablesTakeAny()
{
    std::ostringstream out;
    FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_MAP);
    writeShortComments(writer, 1000);
    std::cout << "map tables: " << out.str().size() << " octets\n";
    return true;
}

// A document is read and written again, in one go. The writer takes the parser's tables over, so they have to be of a
// kind that can look values up.
bool copyDocument()
{
    std::ostringstream first;
    FastInfosetWriter writer(first, false, DocumentVocabulary::VOC_MAP);
    writeShortComments(writer, 3);

    std::ostringstream second;
    FastInfosetWriter copyingWriter(second, false, DocumentVocabulary::VOC_MAP);
    FastInfosetParser parser(DocumentVocabulary::VOC_MAP);
    parser.initialize(&copyingWriter);
    parser.parseMemoryNP(first.str().data(), first.str().size());
    return second.str() == first.str();
}

bool vectorTablesOnlyRead()
{
    std::ostringstream out;
    try
    {
        const FastInfosetWriter writer(out, false, DocumentVocabulary::VOC_VECTOR);
        return false;
    }
    catch (const Vesk::InvalidArgumentException& exception)
    {
        std::cout << "vector tables: " << exception.message() << '\n';
        return true;
    }
}

} // namespace

int main()
{
    try
    {
        return hashTablesAreLimited() && mapTablesTakeAny() && copyDocument() && vectorTablesOnlyRead() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "tables: " << exception.what() << '\n';
        return 1;
    }
}
