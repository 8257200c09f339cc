// SPDX-License-Identifier: MIT
#ifndef VESK_URISTREAMOPENER_H
#define VESK_URISTREAMOPENER_H

#include "Vesk/URI.h"
#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace Vesk
{

/// Opens what a URI or a file path names as a stream, with one factory for each URI scheme.
///
/// At first there is one factory only, for "file". It opens plain paths as well; without it they are refused, so that an
/// application can keep documents from naming files. No scheme reaches the network unless the application registers one.
///
/// All operations may be called from any thread.
class VESK_FOUNDATION_API URIStreamOpener
{
public:
    /// Hands over a stream, never null, that stands at the first octet, or throws. Called from the thread that opens, from
    /// several at once if they do.
    using StreamFactory = std::function<std::unique_ptr<std::istream>(const URI& uri)>;

    URIStreamOpener();
    URIStreamOpener(const URIStreamOpener&) = delete;
    URIStreamOpener& operator=(const URIStreamOpener&) = delete;

    /// The opener that the Vesk libraries use. It lives until the process ends.
    static URIStreamOpener& defaultOpener();

    /// Hands the opened stream over.
    ///
    /// Of files only regular ones are opened: waiting for a pipe or a terminal could take for ever. Throws
    /// SyntaxException for a malformed URI, UnknownURISchemeException for a scheme without factory (a plain path counts as
    /// "file"), FileNotFoundException for a file that does not exist, IOException for one that cannot be read, is on
    /// another host or is not a regular file, and what the application's factories throw.
    std::unique_ptr<std::istream> open(const std::string& uriOrPath) const;

    /// Puts a factory in charge of a scheme (in any case, without colon), in place of the one it had.
    void registerStreamFactory(const std::string& scheme, StreamFactory factory);
    /// Removes a scheme's factory, if it has one. Streams that it opened stay open.
    void unregisterStreamFactory(const std::string& scheme);

private:
    mutable std::mutex _mutex;
    std::map<std::string, StreamFactory> _factories; // by scheme in lower case
};

} // namespace Vesk

#endif // VESK_URISTREAMOPENER_H
