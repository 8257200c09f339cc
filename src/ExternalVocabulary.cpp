// SPDX-License-Identifier: MIT
#include "ExternalVocabulary.h"
#include "PrologHandler.h"
#include "Vesk/FastInfoset/FISException.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/FastInfoset/FastInfosetWriter.h"
#include "Vesk/NullOutputStream.h"
#include "Vesk/Path.h"
#include "Vesk/URI.h"
#include "Vesk/URIStreamOpener.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/SAXParser.h"
#include <algorithm>
#include <memory>

namespace Vesk::FastInfoset
{

namespace
{

std::string lowerCaseExtension(const std::string& uri)
{
    std::string extension = Path(URI(uri).getPath()).getExtension();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

} // namespace

DocumentVocabulary ExternalVocabulary::load(const std::string& uri, bool forWriter, int depth)
{
    // Answers a document that names itself, and chains of documents made to keep the parser busy.
    if (depth >= MAX_DEPTH)
        throw FISException("External vocabularies nested too deeply");
    const std::unique_ptr<std::istream> stream = URIStreamOpener::defaultOpener().open(uri);
    if (lowerCaseExtension(uri) == "xml")
        return loadXML(*stream);
    return loadFastInfoset(*stream, forWriter ? DocumentVocabulary::VOC_MAP : DocumentVocabulary::VOC_VECTOR, depth);
}

// The vocabulary that a writer builds while it encodes the document.
DocumentVocabulary ExternalVocabulary::loadXML(std::istream& stream)
{
    NullOutputStream nowhere;
    FastInfosetWriter writer(nowhere, false, DocumentVocabulary::VOC_MAP);
    PrologHandler prolog(writer, writer, writer);
    XML::SAXParser parser;
    prolog.connect(parser);
    XML::InputSource source(stream);
    parser.parse(&source);
    return writer.getDocumentVocabulary();
}

// The vocabulary that a parser has at the end of the document.
DocumentVocabulary ExternalVocabulary::loadFastInfoset(std::istream& stream, DocumentVocabulary::VocabularyImpl impl,
                                                       int depth)
{
    FastInfosetParser parser(impl);
    parser._externalDepth = depth + 1;
    XML::InputSource source(stream);
    parser.parse(&source);
    return parser._vocabulary;
}

} // namespace Vesk::FastInfoset
