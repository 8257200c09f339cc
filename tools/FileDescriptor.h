// SPDX-License-Identifier: MIT
#ifndef VESKFI_FILEDESCRIPTOR_H
#define VESKFI_FILEDESCRIPTOR_H

namespace Vesk::Tool
{

/// Owns a file descriptor.
class FileDescriptor
{
public:
    explicit FileDescriptor(int descriptor);
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    /// Closes it. An error then has nobody to go to; who cares about it calls close().
    ~FileDescriptor();

    int get() const { return _descriptor; }
    bool isValid() const { return _descriptor >= 0; }

    /// Closes it now; false, and errno, if the system reports an error.
    bool close();

private:
    int _descriptor;
};

} // namespace Vesk::Tool

#endif // VESKFI_FILEDESCRIPTOR_H
