// SPDX-License-Identifier: MIT
#ifndef VESK_FUZZ_SERVEDVOCABULARY_H
#define VESK_FUZZ_SERVEDVOCABULARY_H

#include "Vesk/Path.h"
#include "Vesk/URIStreamOpener.h"
#include <memory>
#include <sstream>
#include <string>

namespace Fuzz
{

/// While it lives, documents can name "self:" as their external vocabulary, which is the given document, and "self:v.xml",
/// which is a short document in XML text. Nothing else can be opened.
class ServedVocabulary
{
public:
    explicit ServedVocabulary(const std::string& document)
    {
        Vesk::URIStreamOpener& opener = Vesk::URIStreamOpener::defaultOpener();
        opener.unregisterStreamFactory("file");
        opener.registerStreamFactory("self",
                                     [&document](const Vesk::URI& uri) -> std::unique_ptr<std::istream>
                                     {
                                         if (Vesk::Path(uri.getPath()).getExtension() == "xml")
                                             return std::make_unique<std::istringstream>(XML_TEXT);
                                         return std::make_unique<std::istringstream>(document);
                                     });
    }
    ServedVocabulary(const ServedVocabulary&) = delete;
    ServedVocabulary& operator=(const ServedVocabulary&) = delete;
    ~ServedVocabulary() { Vesk::URIStreamOpener::defaultOpener().unregisterStreamFactory("self"); }

private:
    static constexpr const char* XML_TEXT =
        "<p:a xmlns:p='urn:p' b='c' p:d='e'>text<?target data?><!--comment--></p:a>";
};

} // namespace Fuzz

#endif // VESK_FUZZ_SERVEDVOCABULARY_H
