// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_TEMPORARYFILE_H
#define VESK_BENCHMARKS_TEMPORARYFILE_H

#include <fstream>
#include <ostream>
#include <string>

namespace Vesk::Benchmarks
{

/// A file that is written again and again, and removed in the end.
class TemporaryFile
{
public:
    enum Flushing
    {
        OBEYED, ///< as a std::ofstream does
        IGNORED ///< until finish()
    };

    explicit TemporaryFile(Flushing flushing);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    std::ostream& stream() { return _stream; }

    /// Begins a document.
    void rewind();
    /// Ends it: all of it reaches the file.
    void finish();

    /// The document, once it is finished.
    std::string content();

private:
    class Buffer final : public std::filebuf
    {
    public:
        explicit Buffer(Flushing flushing)
            : _flushing(flushing)
        {
        }

        void finish() { std::filebuf::sync(); }

    protected:
        int sync() override { return _flushing == OBEYED ? std::filebuf::sync() : 0; }

    private:
        const Flushing _flushing;
    };

    std::string _path;
    Buffer _buffer;
    std::ostream _stream{&_buffer};
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_TEMPORARYFILE_H
