// SPDX-License-Identifier: MIT
//
// Any octets as a document that a parser hands to a writer, vocabulary included. What comes out has to parse and to mean
// the same, whatever tables it is read with.
#include "EventText.h"
#include "Fuzz.h"
#include "ServedVocabulary.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include <sstream>

using namespace Vesk;
using namespace Vesk::FastInfoset;

namespace
{

// A count of more than 128 entries in an initial vocabulary is written in a form that reads as another count. The
// reserved entry is not among them.
constexpr unsigned int WRITABLE_ENTRIES = 128;

/// Keeps the vocabulary with which a document began. Being there, it makes external vocabularies load as they do for a
/// writer, and indexes mean the same in both documents.
class Header : public FISDocumentHandler
{
public:
    void setDocumentVocabulary(const DocumentVocabulary& vocabulary) override { _vocabulary = vocabulary; }
    DocumentVocabulary& getDocumentVocabulary() override { return _vocabulary; }
    const DocumentVocabulary& getDocumentVocabulary() const override { return _vocabulary; }
    void setWriteXMLDeclaration(bool) override {}
    void setExternalVocabulary(const std::string&, const DocumentVocabulary&) override { _hasExternal = true; }

    bool hasExternal() const { return _hasExternal; }

    bool isWritable() const
    {
        for (int id = DocumentVocabulary::PREFIX; id <= DocumentVocabulary::CONTENT_CHARACTER_CHUNK; ++id)
        {
            if (_vocabulary.vocabulary(static_cast<DocumentVocabulary::ID>(id)).size() > WRITABLE_ENTRIES + 1)
                return false;
        }
        return _vocabulary.restrictedAlphabets().alphabets().size() <= WRITABLE_ENTRIES;
    }

private:
    DocumentVocabulary _vocabulary{DocumentVocabulary::VOC_MAP};
    bool _hasExternal = false;
};

void parse(FastInfosetParser& parser, const std::string& document, Fuzz::Meaning& meaning, Header& header)
{
    meaning.attachTo(parser);
    parser.setDocumentHandler(&header);
    parser.parseMemoryNP(document.data(), document.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string document = Fuzz::octetsOf(data, size);
    const Fuzz::ServedVocabulary served(document);

    Fuzz::Meaning meaning;
    Header header;
    FastInfosetParser parser(DocumentVocabulary::VOC_MAP);
    if (!Fuzz::refusalOf([&] { parse(parser, document, meaning, header); }).empty())
        return 0;

    std::ostringstream copy;
    const std::string refusal = Fuzz::refusalOf(
        [&]
        {
            FastInfosetParser source(DocumentVocabulary::VOC_MAP);
            FastInfosetWriter writer(copy, false, DocumentVocabulary::VOC_MAP);
            source.initialize(&writer);
            source.parseMemoryNP(document.data(), document.size());
        });
    if (!refusal.empty() || meaning.isOdd() || !header.isWritable())
        return 0;

    for (const auto tables : {DocumentVocabulary::VOC_MAP, DocumentVocabulary::VOC_VECTOR})
    {
        if (tables == DocumentVocabulary::VOC_VECTOR && header.hasExternal())
            continue;
        Fuzz::Meaning copied;
        Header copiedHeader;
        FastInfosetParser copyParser(tables);
        parse(copyParser, copy.str(), copied, copiedHeader);
        Fuzz::requireEqual(copied.text(), meaning.text(), "the copy means something else");
    }
    return 0;
}
