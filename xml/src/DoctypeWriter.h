// SPDX-License-Identifier: MIT
#ifndef VESK_XML_DOCTYPEWRITER_H
#define VESK_XML_DOCTYPEWRITER_H

#include "Vesk/XML/XMLString.h"
#include <string_view>

namespace Vesk::XML
{
class XMLOutput;

/// Writes a document type declaration whose parts arrive in any order.
class DoctypeWriter
{
public:
    /// Borrows the output.
    explicit DoctypeWriter(XMLOutput& out);

    /// Back to the start of a document. Declarations that have arrived already belong to it.
    void reset();

    void start(const XMLString& name, const XMLString& publicId, const XMLString& systemId);
    void end();
    /// Between start and end.
    bool isOpen() const { return _isOpen; }

    /// Tells that a comment or processing instruction is going to be written inside the declaration.
    void startItem();

    /// An empty identifier counts as absent.
    void addNotation(const XMLString& name, const XMLString& publicId, const XMLString& systemId);
    void addUnparsedEntity(const XMLString& name, const XMLString& publicId, const XMLString& systemId,
                           const XMLString& notationName);

    /// Tells that the root element is going to be written: completes the declaration, or makes one if it is needed.
    void startRoot(std::string_view name);

    /// True if a reference to an entity that is not declared in the document is well-formed.
    bool hasExternalSubset() const { return _hasExternalSubset; }

private:
    void addDeclaration(const XMLString& text);
    void openSubset();

    XMLOutput& _out;
    XMLString _declarations; // those that have arrived before the document type declaration
    bool _isOpen = false;
    bool _isWritten = false;
    bool _hasSubset = false;
    bool _hasExternalSubset = false;
    bool _hasRoot = false;
};
} // namespace Vesk::XML

#endif // VESK_XML_DOCTYPEWRITER_H
