// SPDX-License-Identifier: MIT
#ifndef VESK_PATH_H
#define VESK_PATH_H

#include "Vesk/Foundation.h"
#include <string>
#include <utility>

namespace Vesk
{

/// The name of a file, with its directories in front, separated by "/".
class VESK_FOUNDATION_API Path
{
public:
    /// Takes the text as it is; nothing is looked up.
    explicit Path(std::string text)
        : _text(std::move(text))
    {
    }

    /// What follows the last "." of the last part: "xml" in "/etc/old.d/names.xml". Empty if there is none, or if it is the
    /// first character, as in ".profile".
    std::string getExtension() const;

private:
    std::string _text;
};

} // namespace Vesk

#endif // VESK_PATH_H
