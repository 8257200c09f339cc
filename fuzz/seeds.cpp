// SPDX-License-Identifier: MIT
//
// Makes the first inputs of every fuzz target out of the project's own documents: one folder a target.
#include "Octets.h"
#include "SampleDocuments.h"
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/EncodingAlgorithm.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/UUID.h"
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

namespace fs = std::filesystem;

void save(const fs::path& folder, const std::string& name, const std::string& octets)
{
    fs::create_directories(folder);
    std::ofstream stream(folder / name, std::ios::binary);
    stream << octets;
    if (!stream.flush())
        throw std::runtime_error("cannot write " + (folder / name).string());
}

/// Documents are good for two targets.
void saveDocument(const fs::path& target, const std::string& name, const std::string& octets)
{
    save(target / "parse", name, octets);
    save(target / "reencode", name, octets);
}

std::string contentOf(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

void saveConverted(const fs::path& data, const fs::path& target)
{
    for (const auto& entry : fs::directory_iterator(data))
    {
        if (entry.path().extension() != ".xml")
            continue;
        const std::string xml = contentOf(entry.path());
        const std::string name = entry.path().stem().string();
        save(target / "xml", name + ".xml", xml);
        for (const int maxIndexedLength : {0, 16, 64})
        {
            std::istringstream in(xml);
            std::ostringstream out;
            Converter::convertToFIS(in, out, maxIndexedLength, 0);
            saveDocument(target, name + "-" + std::to_string(maxIndexedLength), out.str());
        }
    }
}

void writeTyped(FastInfosetWriter& writer)
{
    writer.startDocument();
    writer.startElement("urn:typed", "values", "t:values");
    writer.binaryData("\x00\x01\xFE\xFF", 4);
    for (const int value : {0, -1, 77, std::numeric_limits<int>::max()})
    {
        writer.encodedData(static_cast<short>(value));
        writer.encodedData(value);
        writer.encodedData(static_cast<long>(value) * (1l << 31));
        writer.encodedData(value > 0);
        writer.encodedData(static_cast<float>(value) / 3);
        writer.encodedData(static_cast<double>(value) * 1e100);
        writer.encodedData(UUID("0123456789ABCDEF0123456789ABCDEF"));
    }
    for (const double value : {0.0, -0.0, 1.5, std::numeric_limits<double>::infinity()})
        writer.encodedData(value);
    writer.startCDATA();
    writer.characters("cdata");
    writer.endCDATA();
    writer.endElement("urn:typed", "values", "t:values");
    writer.endDocument();
}

void saveWritten(const fs::path& target)
{
    std::ostringstream typed;
    {
        FastInfosetWriter writer(typed, true, DocumentVocabulary::VOC_MAP);
        writeTyped(writer);
    }
    saveDocument(target, "typed-with-declaration", typed.str());

    std::ostringstream prepared;
    {
        DocumentVocabulary vocabulary(DocumentVocabulary::VOC_MAP);
        bool found = false;
        for (const char* const name : {"values", "t", "other"})
            vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME).index(name, found);
        vocabulary.vocabulary(DocumentVocabulary::PREFIX).index("t", found);
        vocabulary.vocabulary(DocumentVocabulary::NAMESPACE_NAME).index("urn:typed", found);
        vocabulary.restrictedAlphabets().add("0123456789");
        FastInfosetWriter writer(prepared, false, vocabulary);
        writeTyped(writer);
    }
    saveDocument(target, "initial-vocabulary", prepared.str());
}

// What the writer never writes.
void saveHandMade(const fs::path& target)
{
    const std::vector<std::string> samples = sampleDocuments();
    for (std::size_t i = 0; i < samples.size(); ++i)
        saveDocument(target, "sample-" + std::to_string(i), samples[i]);
    const std::string external = "E0 00 00 01 20 10 00";
    saveDocument(target, "external-itself", octetsOf(external + "05 'self:v' 3C 00 'a' FF"));
    saveDocument(target, "external-xml", octetsOf(external + "09 'self:v.xml' 00 F0 A0 FF"));
    saveDocument(target, "external-unknown", octetsOf(external + "05 'none:v' 3C 00 'a' FF"));
    saveDocument(target, "date-alphabet-attribute",
                 octetsOf("E0 00 00 01 00 7C 00 'a' 78 00 'b' [0 1 10 0000 0001 0001] 01 23 45 F0 FF"));
}

void saveValues(const fs::path& target)
{
    struct Row
    {
        unsigned int algorithm;
        const char* text;
    };
    const Row rows[] = {{1, "00FF10"},
                        {2, "AAECAw=="},
                        {3, "0 -1 32767"},
                        {4, "2147483647 -2147483648"},
                        {5, "9223372036854775807 0"},
                        {6, "true false true true true false false true true"},
                        {7, "1.5 2.25"},
                        {8, "2.5 -INF"},
                        {9, "01234567-89AB-CDEF-0123-456789ABCDEF"},
                        {10, "]]>"}};
    for (const Row& row : rows)
    {
        for (const unsigned int bitOffset : {4u, 6u})
        {
            std::ostringstream stream;
            {
                BitStreamWriter writer(stream, false);
                writer.writeBits(static_cast<int>(bitOffset), false);
                EncodingAlgorithm().encoding(row.algorithm)(writer, row.text);
            }
            const char selector = static_cast<char>(row.algorithm + (bitOffset == 6 ? 0x80 + 4 : 0));
            save(target / "typed", std::to_string(row.algorithm) + "-at-" + std::to_string(bitOffset),
                 selector + stream.str());
        }
    }
}

// Options, then events; see write.cpp.
void savePrograms(const fs::path& target)
{
    const std::string tidy = "00 00 4B 4C 0C 05 10 00 0A 01 06 01 0A 02 07 0C 05 0C 07 0D 08 01 0D 0B 05 0C 0B 03 ";
    save(target / "write", "tidy", octetsOf(tidy));
    save(target / "write", "tidy-hash-declared", octetsOf("03" + tidy.substr(2)));
    save(target / "write", "tidy-prepared", octetsOf("04" + tidy.substr(2)));
    save(
        target / "write", "typed",
        octetsOf("00 00 00 00 01 00 00 10 C3 01 02 03 10 C1 FF 11 01 00 12 FF FF FF 7F 13 00 00 00 00 00 00 00 80 14 01"
                 "14 00 15 00 00 C0 7F 16 00 00 00 00 00 00 F0 3F 17 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F"));
    save(target / "write", "declarations",
         octetsOf("00 03 01 0A 0B 01 02 00 0B 02 01 0A 0A 03 0C 0A 0B 08 01 0D 0C 00 00 01 00 00"));
    save(target / "write", "out-of-order", octetsOf("08 0E 00 0A 01 00 00 03 03 0F 0E 0C 0A 0B 05 0C 0B 0B 07 0D"));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::cerr << "usage: fuzz-seeds XML-FOLDER TARGET-FOLDER\n";
        return 2;
    }
    try
    {
        saveConverted(argv[1], argv[2]);
        saveWritten(argv[2]);
        saveHandMade(argv[2]);
        saveValues(argv[2]);
        savePrograms(argv[2]);
        return 0;
    }
    catch (const std::exception& exception)
    {
        std::cerr << exception.what() << "\n";
        return 1;
    }
}
