// SPDX-License-Identifier: MIT
#include "Vocabularies.h"
#include "CommandOptions.h"
#include "DocumentKind.h"
#include "Failure.h"
#include "InputFile.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/URIStreamOpener.h"
#include <algorithm>
#include <map>
#include <memory>
#include <sstream>

namespace Vesk::Tool
{

namespace
{

// What a writer has that was told nothing else, as the one that a document's writer has learnt the vocabulary from.
constexpr int MAX_INDEXED_OCTETS = 16;

const char XML_EXTENSION[] = ".xml";

// The library takes what such a URI names for XML text, anything else for Fast Infoset.
bool namesXML(const URI& uri)
{
    std::string end = uri.getPath();
    end.erase(0, end.size() - std::min(end.size(), sizeof XML_EXTENSION - 1));
    for (char& c : end)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return end == XML_EXTENSION;
}

// The user need not care which form the URI makes the library expect, except where it cannot be had from the file.
std::unique_ptr<std::istream> openVocabulary(const URI& uri, const std::string& path)
{
    auto file = std::make_unique<InputFile>(path);
    const DocumentKind kind = kindOf(file->start());
    if (kind == DocumentKind::UNKNOWN)
        throw FileError(path, "neither XML nor Fast Infoset");
    if (namesXML(uri) == (kind == DocumentKind::XML))
        return file;
    if (kind == DocumentKind::FAST_INFOSET)
        throw FileError(path, "a vocabulary whose URI ends in .xml has to be an XML document");
    auto document = std::make_unique<std::stringstream>();
    try
    {
        FastInfoset::Converter::convertToFIS(*file, *document, MAX_INDEXED_OCTETS, 0);
    }
    catch (const std::exception& exception)
    {
        throw Failure::of(file->name(), exception);
    }
    return document;
}

std::string schemeOf(const std::string& uri)
{
    try
    {
        return URI(uri).getScheme();
    }
    catch (const SyntaxException&)
    {
        throw UsageError("--vocab takes a URI, not " + uri);
    }
}

} // namespace

void Vocabularies::declareOption(CommandOptions& options)
{
    options.addOption("--vocab", "URI=FILE", _options,
                      "read the external vocabulary URI from FILE, an XML or Fast Infoset document (repeatable)");
}

void Vocabularies::install() const
{
    const auto files = std::make_shared<std::map<std::string, std::string>>();
    std::vector<std::string> schemes;
    for (const std::string& option : _options)
    {
        // A URI may hold "=" itself.
        const std::string::size_type equals = option.rfind('=');
        if (equals == std::string::npos || equals == 0 || equals + 1 == option.size())
            throw UsageError("--vocab takes URI=FILE, not " + option);
        const std::string uri = option.substr(0, equals);
        (*files)[uri] = option.substr(equals + 1);
        schemes.push_back(schemeOf(uri));
    }

    const auto open = [files](const URI& uri)
    {
        const auto found = files->find(uri.toString());
        if (found == files->end())
            throw UnknownURISchemeException("Unknown URI scheme", uri.toString()); // as for any other scheme
        return openVocabulary(uri, found->second);
    };
    URIStreamOpener& opener = URIStreamOpener::defaultOpener();
    opener.unregisterStreamFactory("file");
    for (const std::string& scheme : schemes)
        opener.registerStreamFactory(scheme.empty() ? "file" : scheme, open);
}

} // namespace Vesk::Tool
