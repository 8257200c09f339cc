// SPDX-License-Identifier: MIT
#ifndef VESK_PATH_H
#define VESK_PATH_H

#include "Vesk/Foundation.h"
#include <string>

namespace Vesk
{

/// The name of a file or directory, taken apart at "/".
class VESK_FOUNDATION_API Path
{
public:
    explicit Path(const std::string& text);

    /// What follows the last "/": "names.xml" in "/etc/names.xml". May be empty.
    const std::string& fileName() const noexcept { return _fileName; }
    /// What follows the last "." of the file name: "xml" in "names.xml". Empty if there is none or if it is the first
    /// character, as in ".profile".
    std::string extension() const;

private:
    std::string _fileName;
};

} // namespace Vesk

#endif // VESK_PATH_H
