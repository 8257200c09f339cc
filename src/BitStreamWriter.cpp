// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/Utility.h"
#include <algorithm>
#include <cstring>

namespace Vesk::FastInfoset
{

BitStreamWriter::BitStreamWriter(std::ostream& stream, bool paddingBit)
    : _stream(stream),
      _streamState(stream),
      _paddingBit(paddingBit)
{
}

BitStreamWriter::~BitStreamWriter()
{
    // A failure that an operation has thrown already needs no second report.
    if (_failed)
        return;
    try
    {
        _holding = false;
        complete(_paddingBit);
    }
    catch (const std::exception& exception)
    {
        Bugcheck::unexpected(exception, "src/BitStreamWriter", 54);
    }
}

void BitStreamWriter::writeBits(int numOfBits, bool bit)
{
    for (; numOfBits > 0; numOfBits -= 32)
    {
        append(bit ? 0xFFFFFFFFu : 0u, std::min(numOfBits, 32));
        spill();
    }
    handOver();
}

void BitStreamWriter::write(char value, int numOfBits)
{
    checkWidth(numOfBits, Utility::SIZEOFCHARINBIT, "checkInputParams(Utility::SIZEOFCHARINBIT, numOfBits)", 139);
    append(static_cast<unsigned char>(value), numOfBits);
    handOver();
}

void BitStreamWriter::write(short value, int numOfBits)
{
    checkWidth(numOfBits, Utility::SIZEOFINT16INBIT, "checkInputParams(Utility::SIZEOFINT16INBIT, numOfBits)", 161);
    append(static_cast<unsigned short>(value), numOfBits);
    handOver();
}

void BitStreamWriter::write(long value, int numOfBits)
{
    checkWidth(numOfBits, Utility::SIZEOFINT64INBIT, "checkInputParams(Utility::SIZEOFINT64INBIT, numOfBits)", 229);
    const unsigned long bits = static_cast<unsigned long>(value);
    if (numOfBits > 32)
        append(static_cast<unsigned int>(bits >> 32), numOfBits - 32);
    append(static_cast<unsigned int>(bits), numOfBits > 32 ? 32 : numOfBits);
    handOver();
}

void BitStreamWriter::write(const std::string& octets)
{
    write(octets.data(), octets.size());
}

void BitStreamWriter::write(const char* zeroTerminated)
{
    if (zeroTerminated)
        write(zeroTerminated, std::strlen(zeroTerminated));
}

void BitStreamWriter::write(const char* octets, std::size_t octetCount)
{
    if (!octets || octetCount == 0)
        return;
    if (_failed)
        throwFailed();
    if (_bitCount != 0)
    {
        for (std::size_t i = 0; i < octetCount; ++i)
        {
            append(static_cast<unsigned char>(octets[i]), 8);
            spill();
        }
    }
    else if (octetCount < HELD_OCTETS - _finishedCount)
    {
        std::memcpy(_finished + _finishedCount, octets, octetCount);
        _finishedCount += octetCount;
    }
    else
    {
        writeFullBytesImpl();
        writeToStream(octets, static_cast<long>(octetCount));
    }
    handOver();
}

void BitStreamWriter::complete(bool bit)
{
    if (_failed)
        throwFailed();
    if (_bitCount != 0)
        append(bit ? 0xFFu : 0u, 8 - _bitCount);
    if (_holding)
    {
        _flushDue = true;
        return;
    }
    writeFullBytesImpl();
    flushStream();
}

void BitStreamWriter::release()
{
    _holding = false;
    writeFullBytesImpl();
    if (_flushDue)
        flushStream();
}

void BitStreamWriter::writeFullBytesImpl()
{
    if (_finishedCount == 0)
        return;
    writeToStream(_finished, static_cast<long>(_finishedCount));
    _finishedCount = 0;
}

void BitStreamWriter::writeToStream(const char* octets, long octetCount)
{
    if (_failed)
        throwFailed();
    // Taken for failed until the stream has said otherwise, in whichever way it says so.
    _failed = true;
    giveToStream(octets, octetCount);
    _failed = !_streamState.good();
    if (_failed)
        throwFailed();
}

// What the output functions of a stream see to with each call, at more cost than handing over the octets of an event:
// that it is in order, that a stream tied to it is flushed before and the stream itself afterwards, and who is told of
// exceptions.
bool BitStreamWriter::isPlainStream() const
{
    return _streamState.good() && _streamState.tie() == nullptr &&
           (_streamState.flags() & std::ios_base::unitbuf) == 0 && _streamState.exceptions() == std::ios_base::goodbit;
}

// As ostream does it: a buffer that fails or throws makes the stream bad. What is no std::exception goes on, because a
// thread that is cancelled must not be held up.
template <class Operation>
void BitStreamWriter::operateBuffer(Operation operation)
{
    struct Outcome
    {
        ~Outcome()
        {
            if (!isGood)
                state.setstate(std::ios_base::badbit);
        }
        std::ios& state;
        bool isGood = false;
    };
    try
    {
        Outcome outcome{_streamState};
        outcome.isGood = operation(*_streamState.rdbuf());
    }
    catch (const std::exception&)
    {
        // The state tells.
    }
}

void BitStreamWriter::giveToStream(const char* octets, std::streamsize octetCount)
{
    if (isPlainStream())
        operateBuffer([=](std::streambuf& buffer) { return buffer.sputn(octets, octetCount) == octetCount; });
    else
        _stream.write(octets, octetCount);
}

// Keeps operations that append more than the buffer holds within it.
void BitStreamWriter::spill()
{
    if (_finishedCount >= HELD_OCTETS)
        writeFullBytesImpl();
}

void BitStreamWriter::flushStream()
{
    _flushDue = false;
    _failed = true;
    if (isPlainStream())
        operateBuffer([](std::streambuf& buffer) { return buffer.pubsync() != -1; });
    else
        _stream.flush();
    _failed = !_streamState.good();
    if (_failed)
        throwFailed();
}

void BitStreamWriter::throwFailed() const
{
    throw IOException("error while writing Fast Infoset document to stream");
}

} // namespace Vesk::FastInfoset
