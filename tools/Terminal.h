// SPDX-License-Identifier: MIT
#ifndef VESKFI_TERMINAL_H
#define VESKFI_TERMINAL_H

#include <string>

namespace Vesk::Tool
{

/// What is behind standard output or standard error: a terminal, and what it can show, or a file or pipe.
class Terminal
{
public:
    enum Style
    {
        PLAIN,
        BOLD,
        DIM,
        RED,
        GREEN,
        YELLOW,
        CYAN
    };

    /// Looks at the file descriptor, STDOUT_FILENO or STDERR_FILENO.
    explicit Terminal(int descriptor);

    bool isTerminal() const { return _isTerminal; }

    /// Columns, as of now; 80 for what is no terminal or does not tell.
    int width() const;

    /// The text with what switches the style on and off around it, or the mere text where there is no colour.
    std::string styled(Style style, const std::string& text) const;

private:
    const int _descriptor;
    const bool _isTerminal;
    // It shows colours and the user wants them: TERM is set and not "dumb", NO_COLOR not set or empty.
    const bool _hasColour;
};

} // namespace Vesk::Tool

#endif // VESKFI_TERMINAL_H
