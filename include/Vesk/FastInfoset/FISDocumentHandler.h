// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FISDOCUMENTHANDLER_H
#define VESK_FASTINFOSET_FISDOCUMENTHANDLER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>

namespace Vesk::FastInfoset
{

class DocumentVocabulary;

/// Receives what a document's header says beyond SAX, so that a document can be written again with the same vocabulary.
///
/// Within one document a parser calls setWriteXMLDeclaration, then setExternalVocabulary if one is named, then
/// setDocumentVocabulary, all before startDocument. References are good during the call only.
class VESK_FASTINFOSET_API FISDocumentHandler
{
public:
    /// The vocabulary with which the body starts: built-in entries, external and initial vocabulary.
    virtual void setDocumentVocabulary(const DocumentVocabulary& vocabulary) = 0;

    /// The handler's own vocabulary.
    virtual DocumentVocabulary& getDocumentVocabulary() = 0;
    virtual const DocumentVocabulary& getDocumentVocabulary() const = 0;

    /// Whether the document began with an XML declaration.
    virtual void setWriteXMLDeclaration(bool write) = 0;

    /// The external vocabulary that the document names, as it was loaded.
    virtual void setExternalVocabulary(const std::string& uri, const DocumentVocabulary& vocabulary) = 0;

    virtual ~FISDocumentHandler() = default;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FISDOCUMENTHANDLER_H
