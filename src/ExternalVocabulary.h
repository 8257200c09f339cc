// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_EXTERNALVOCABULARY_H
#define VESK_FASTINFOSET_EXTERNALVOCABULARY_H

#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include <istream>
#include <string>

namespace Vesk::FastInfoset
{

/// Loads the vocabulary that a document borrows from another document by its URI.
///
/// The URI comes from the document, so whoever wrote it chooses what is opened. Everything is opened through
/// URIStreamOpener::defaultOpener(): files, unless the application registers further schemes or unregisters "file".
class ExternalVocabulary
{
public:
    /// Loads what the URI names: an XML document if its path ends in ".xml", in any case of letters, otherwise a Fast
    /// Infoset document. The result is the vocabulary with which that document ends; it records no URI, so that the
    /// next document that names the URI loads it afresh.
    ///
    /// forWriter asks for tables that a writer can work with. depth counts the external vocabularies that are being
    /// loaded already; a chain of more than MAX_DEPTH of them throws FISException.
    /// What the opener and the parsers throw passes through.
    static DocumentVocabulary load(const std::string& uri, bool forWriter, int depth);

private:
    static constexpr int MAX_DEPTH = 8;

    static DocumentVocabulary loadXML(std::istream& stream);
    static DocumentVocabulary loadFastInfoset(std::istream& stream, DocumentVocabulary::VocabularyImpl impl, int depth);
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_EXTERNALVOCABULARY_H
