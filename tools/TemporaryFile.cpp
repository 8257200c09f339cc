// SPDX-License-Identifier: MIT
#include "TemporaryFile.h"
#include "Failure.h"
#include "UnfinishedFiles.h"
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Vesk::Tool
{

namespace
{

std::string withoutLinks(const std::string& path)
{
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? resolved : path;
}

std::string folderOf(const std::string& path)
{
    const std::string::size_type slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

TemporaryFile::TemporaryFile(const std::string& target)
    : _name(target),
      _target(withoutLinks(target))
{
}

TemporaryFile::~TemporaryFile()
{
    if (_path.empty())
        return;
    ::unlink(_path.c_str());
    UnfinishedFiles::forget(_path);
}

int TemporaryFile::open(mode_t rights)
{
    const std::string folder = folderOf(_target);
    std::string path = folder + "/.veskfi-XXXXXX";
    const int descriptor = UnfinishedFiles::create(path);
    if (descriptor < 0)
        throw FileError(_name,
                        "cannot create a temporary file in " + folder + ": " + std::generic_category().message(errno));
    _path = path;
    // A file system without access rights refuses; then there are none to keep.
    static_cast<void>(::fchmod(descriptor, rights));
    return descriptor;
}

void TemporaryFile::moveToTarget(bool mayReplace)
{
    if (!mayReplace && moveWithoutReplacing())
        return;
    if (std::rename(_path.c_str(), _target.c_str()) != 0)
        throw FileError(_name, errno);
    UnfinishedFiles::forget(_path);
    _path.clear();
}

// A second name for the file, unlike a new one, is not given if the name is taken; the first one goes with the
// destructor. Returns false where the file system knows one name for a file only.
bool TemporaryFile::moveWithoutReplacing() const
{
    if (::link(_path.c_str(), _target.c_str()) == 0)
        return true;
    if (errno == EEXIST)
        throw FileError::exists(_name);
    return false;
}

} // namespace Vesk::Tool
