// SPDX-License-Identifier: MIT
#include "TemporaryFile.h"
#include "Vesk/Exception.h"
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace Vesk::Benchmarks
{

TemporaryFile::TemporaryFile(Flushing flushing)
    : _path((std::filesystem::temp_directory_path() / "vesk_report-XXXXXX").string()),
      _buffer(flushing)
{
    const int descriptor = mkstemp(&_path[0]);
    if (descriptor < 0 || _buffer.open(_path, std::ios::out | std::ios::binary) == nullptr)
        throw IOException("Cannot create", _path);
    close(descriptor);
}

TemporaryFile::~TemporaryFile()
{
    std::remove(_path.c_str());
}

void TemporaryFile::rewind()
{
    _buffer.pubseekpos(0);
}

void TemporaryFile::finish()
{
    _buffer.finish();
}

// What longer documents have left behind the end of this one does not belong to it.
std::string TemporaryFile::content()
{
    std::string content(static_cast<std::size_t>(_buffer.pubseekoff(0, std::ios::cur)), '\0');
    std::ifstream(_path, std::ios::binary).read(&content[0], static_cast<std::streamsize>(content.size()));
    return content;
}

} // namespace Vesk::Benchmarks
