// SPDX-License-Identifier: MIT
#include "Terminal.h"
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

constexpr int USUAL_WIDTH = 80;

std::string environment(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): the tool changes no variable
    return value ? value : "";
}

bool wantsColour()
{
    const std::string kind = environment("TERM");
    return !kind.empty() && kind != "dumb" && environment("NO_COLOR").empty();
}

// What selects the styles of Terminal::Style (ECMA-48, Select Graphic Rendition).
const char* const CODES[] = {"0", "1", "2", "31", "32", "33", "36"};

} // namespace

Terminal::Terminal(int descriptor)
    : _descriptor(descriptor),
      _isTerminal(::isatty(descriptor) == 1),
      _hasColour(_isTerminal && wantsColour())
{
}

int Terminal::width() const
{
    winsize size = {};
    return ::ioctl(_descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : USUAL_WIDTH;
}

std::string Terminal::styled(Style style, const std::string& text) const
{
    return _hasColour && style != PLAIN ? std::string("\033[") + CODES[style] + "m" + text + "\033[0m" : text;
}

} // namespace Vesk::Tool
