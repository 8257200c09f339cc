// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_TEMPORARYFILE_H
#define VESK_TESTS_TEMPORARYFILE_H

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

/// A file of this process with a given end of its name, gone when the object goes.
class TemporaryFile
{
public:
    TemporaryFile(const std::string& nameEnd, const std::string& octets)
        : _path((std::filesystem::temp_directory_path() / ("vesk-" + std::to_string(getpid()) + nameEnd)).string())
    {
        write(octets);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(_path); }

    void write(const std::string& octets) const { std::ofstream(_path, std::ios::binary) << octets; }

    const std::string& path() const { return _path; }

private:
    const std::string _path;
};

#endif // VESK_TESTS_TEMPORARYFILE_H
