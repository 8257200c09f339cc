// SPDX-License-Identifier: MIT
#include "OutputFolders.h"
#include "Failure.h"
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace Vesk::Tool
{

OutputFolders::~OutputFolders()
{
    for (auto folder = _made.rbegin(); folder != _made.rend(); ++folder)
        ::rmdir(folder->c_str()); // fails for those that hold something
}

void OutputFolders::makeFor(const std::string& file)
{
    constexpr mode_t USUAL_RIGHTS = 0777;
    const std::lock_guard<std::mutex> lock(_mutex);
    std::filesystem::path folder;
    for (const std::filesystem::path& name : std::filesystem::path(file).parent_path())
    {
        folder /= name;
        if (::mkdir(folder.c_str(), USUAL_RIGHTS) == 0)
            _made.push_back(folder.string());
        else if (errno != EEXIST && !std::filesystem::is_directory(folder))
            throw FileError(folder.string(), errno);
    }
}

} // namespace Vesk::Tool
