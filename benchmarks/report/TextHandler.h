// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_TEXTHANDLER_H
#define VESK_BENCHMARKS_TEXTHANDLER_H

#include "Vesk/XML/ContentHandler.h"
#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// What handlers that write XML text have in common: the namespace declarations wait for their element.
class TextHandler : public XML::ContentHandler
{
public:
    void setDocumentLocator(const XML::Locator*) override {}
    void endDocument() override {}

    void ignorableWhitespace(const XML::XMLChar ch[], int start, int length) override { characters(ch, start, length); }

    void startPrefixMapping(const XML::XMLString& prefix, const XML::XMLString& uri) override
    {
        _declarations.push_back({&prefix, &uri});
    }
    void endPrefixMapping(const XML::XMLString&) override {}
    void skippedEntity(const XML::XMLString&) override {}

protected:
    struct Declaration
    {
        const std::string* prefix;
        const std::string* uri;

        std::string attributeName() const { return prefix->empty() ? "xmlns" : "xmlns:" + *prefix; }
    };

    /// Those of the element that starts, to be cleared when they are written. Their strings are borrowed beyond the
    /// call, which is good for events out of an EventStore only.
    std::vector<Declaration>& declarations() { return _declarations; }

private:
    std::vector<Declaration> _declarations;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_TEXTHANDLER_H
