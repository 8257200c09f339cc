// SPDX-License-Identifier: MIT
#include "FileDescriptor.h"
#include <unistd.h>
#include <utility>

namespace Vesk::Tool
{

FileDescriptor::FileDescriptor(int descriptor)
    : _descriptor(descriptor)
{
}

FileDescriptor::~FileDescriptor()
{
    close();
}

bool FileDescriptor::close()
{
    const int descriptor = std::exchange(_descriptor, -1);
    return descriptor < 0 || ::close(descriptor) == 0;
}

} // namespace Vesk::Tool
