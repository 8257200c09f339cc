// SPDX-License-Identifier: MIT
#include "Vesk/URIStreamOpener.h"
#include "LowerCase.h"
#include "Vesk/Exception.h"
#include <filesystem>
#include <fstream>
#include <utility>

namespace Vesk
{

namespace
{

std::unique_ptr<std::istream> openFile(const URI& uri)
{
    const std::string& name = uri.getPath();
    if (!uri.getAuthority().empty() && asciiLowerCase(uri.getAuthority()) != "localhost")
        throw IOException("File on another host", uri.toString());
    // The system would take the name to end at a zero octet, and open another file than the one that was checked.
    if (name.empty() || name.find('\0') != std::string::npos)
        throw FileNotFoundException("File not found", uri.toString());

    std::error_code error;
    const auto status = std::filesystem::status(name, error);
    if (status.type() == std::filesystem::file_type::not_found)
        throw FileNotFoundException("File not found", name);
    if (error || !std::filesystem::is_regular_file(status))
        throw IOException(error ? "Cannot open file" : "Not a regular file", name);
    auto stream = std::make_unique<std::ifstream>(name, std::ios::binary);
    if (!*stream)
        throw IOException("Cannot open file", name);
    return stream;
}

} // namespace

URIStreamOpener::URIStreamOpener()
{
    registerStreamFactory("file", openFile);
}

URIStreamOpener& URIStreamOpener::defaultOpener()
{
    // Never destroyed: destructors of other static objects may still open something.
    static URIStreamOpener* const instance = new URIStreamOpener;
    return *instance;
}

std::unique_ptr<std::istream> URIStreamOpener::open(const std::string& uriOrPath) const
{
    const URI uri(uriOrPath);
    StreamFactory factory; // a copy, so that opening holds up nobody and a factory may use this opener
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        const auto found = _factories.find(uri.getScheme().empty() ? "file" : uri.getScheme());
        if (found == _factories.end())
            throw UnknownURISchemeException("Unknown URI scheme", uriOrPath);
        factory = found->second;
    }
    return factory(uri);
}

void URIStreamOpener::registerStreamFactory(const std::string& scheme, StreamFactory factory)
{
    const std::lock_guard<std::mutex> lock(_mutex);
    _factories[asciiLowerCase(scheme)] = std::move(factory);
}

void URIStreamOpener::unregisterStreamFactory(const std::string& scheme)
{
    const std::lock_guard<std::mutex> lock(_mutex);
    _factories.erase(asciiLowerCase(scheme));
}

} // namespace Vesk
