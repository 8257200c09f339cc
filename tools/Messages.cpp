// SPDX-License-Identifier: MIT
#include "Messages.h"
#include "CommandOptions.h"
#include "Quoted.h"
#include <iostream>

namespace Vesk::Tool
{

namespace
{

const char TO_START_OF_LINE_AND_CLEAR[] = "\r\033[K";

} // namespace

void Messages::declareOptions(CommandOptions& options)
{
    options.addFlag("-q,--quiet", _isQuiet, "say nothing but failures");
    options.addFlag("-v,--verbose", _isVerbose, "say what is done and what is left out");
}

void Messages::failure(const std::string& text)
{
    write(text);
}

void Messages::warning(const std::string& text)
{
    if (!_isQuiet)
        write("warning: " + text);
}

void Messages::note(const std::string& text)
{
    if (_isVerbose && !_isQuiet)
        write(text);
}

void Messages::showProgress(const std::string& line)
{
    const std::lock_guard<std::mutex> lock(_mutex);
    if (_hasProgress || !line.empty())
        std::cerr << TO_START_OF_LINE_AND_CLEAR << line << std::flush;
    _hasProgress = !line.empty();
}

void Messages::write(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(_mutex);
    if (_hasProgress)
        std::cerr << TO_START_OF_LINE_AND_CLEAR;
    _hasProgress = false;
    // In one piece, so that lines of several processes do not mix.
    std::cerr << "veskfi: " + shown(text, ALL_CHARACTERS) + "\n" << std::flush;
}

} // namespace Vesk::Tool
