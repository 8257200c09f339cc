// SPDX-License-Identifier: MIT
#include "Vesk/FastInfoset/BitStreamWriter.h"
#include "Vesk/Bugcheck.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/Utility.h"
#include <cstring>

namespace Vesk::FastInfoset
{

namespace
{

const char FILE_NAME[] = "src/BitStreamWriter";

// Longer runs of octets go straight to the stream instead of through the buffer of held octets.
constexpr std::size_t HOLD_LIMIT = 4096;

inline void checkInputParams(int maximum, int numOfBits, const char* condition, int line)
{
    if (numOfBits < 1 || numOfBits > maximum)
        Bugcheck::assertion(condition, FILE_NAME, line);
}

} // namespace

BitStreamWriter::BitStreamWriter(std::ostream& stream, bool paddingBit)
    : _stream(stream),
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
        Bugcheck::unexpected(exception, FILE_NAME, 54);
    }
}

void BitStreamWriter::write(bool bit)
{
    append(bit ? 1 : 0, 1);
    handOver();
}

void BitStreamWriter::writeBits(int numOfBits, bool bit)
{
    for (; numOfBits > 0; --numOfBits)
        append(bit ? 1 : 0, 1);
    handOver();
}

void BitStreamWriter::write(char value, int numOfBits)
{
    checkInputParams(Utility::SIZEOFCHARINBIT, numOfBits, "checkInputParams(Utility::SIZEOFCHARINBIT, numOfBits)", 139);
    append(static_cast<unsigned char>(value), numOfBits);
    handOver();
}

void BitStreamWriter::write(short value, int numOfBits)
{
    checkInputParams(Utility::SIZEOFINT16INBIT, numOfBits, "checkInputParams(Utility::SIZEOFINT16INBIT, numOfBits)",
                     161);
    append(static_cast<unsigned short>(value), numOfBits);
    handOver();
}

void BitStreamWriter::write(int value, int numOfBits)
{
    checkInputParams(Utility::SIZEOFINT32INBIT, numOfBits, "checkInputParams(Utility::SIZEOFINT32INBIT, numOfBits)",
                     195);
    append(static_cast<unsigned int>(value), numOfBits);
    handOver();
}

void BitStreamWriter::write(long value, int numOfBits)
{
    checkInputParams(Utility::SIZEOFINT64INBIT, numOfBits, "checkInputParams(Utility::SIZEOFINT64INBIT, numOfBits)",
                     229);
    const unsigned long bits = static_cast<unsigned long>(value);
    if (numOfBits > 32)
        append(bits >> 32, numOfBits - 32);
    append(bits, numOfBits > 32 ? 32 : numOfBits);
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
    checkUsable();
    if (_bitCount != 0)
    {
        for (std::size_t i = 0; i < octetCount; ++i)
            append(static_cast<unsigned char>(octets[i]), 8);
    }
    else if (octetCount < HOLD_LIMIT)
    {
        _finished.append(octets, octetCount);
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
    checkUsable();
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

void BitStreamWriter::hold()
{
    _holding = true;
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
    if (_finished.empty())
        return;
    writeToStream(_finished.data(), static_cast<long>(_finished.size()));
    _finished.clear();
}

void BitStreamWriter::writeToStream(const char* octets, long octetCount)
{
    // Taken for failed until the stream has said otherwise, in whichever way it says so.
    checkUsable();
    _failed = true;
    _stream.write(octets, octetCount);
    _failed = !_stream.good();
    checkUsable();
}

// Appends the low numOfBits bits of the value (1 to 32).
void BitStreamWriter::append(unsigned long value, int numOfBits)
{
    checkUsable();
    // At most 7 pending bits and 32 new ones.
    int total = _bitCount + numOfBits;
    const unsigned long mask = (1ul << numOfBits) - 1;
    const unsigned long bits = (static_cast<unsigned long>(_pending) << numOfBits) | (value & mask);
    for (; total >= 8; total -= 8)
        _finished += static_cast<char>(bits >> (total - 8));
    _bitCount = total;
    _pending = static_cast<unsigned int>(bits & ((1ul << total) - 1));
}

void BitStreamWriter::checkUsable() const
{
    if (_failed)
        throw IOException("error while writing Fast Infoset document to stream");
}

void BitStreamWriter::flushStream()
{
    _flushDue = false;
    _failed = true;
    _stream.flush();
    _failed = !_stream.good();
    checkUsable();
}

// Ends every operation that appends.
void BitStreamWriter::handOver()
{
    if (!_holding)
        writeFullBytesImpl();
}

} // namespace Vesk::FastInfoset
