// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_FISARRAYHANDLER_H
#define VESK_FASTINFOSET_FISARRAYHANDLER_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <cstddef>

namespace Vesk::FastInfoset
{

/// For handlers to which a call for every number is too much: takes the numbers of typed content in arrays.
///
/// A FISContentHandler that derives from this class as well, and is set on a FastInfosetParser, receives numbers through
/// the calls below instead of FISContentHandler::encodedData, which stays with booleans and UUIDs. The numbers of one
/// character chunk come in one call or, if they take more than 8 KiB, in several, in document order. The array is
/// borrowed and valid during the call only; count is never 0. It costs about a quarter of one call a number.
class VESK_FASTINFOSET_API FISArrayHandler
{
public:
    virtual ~FISArrayHandler() = default;

    /// Numbers of one type, in document order. The argument's type tells the encoding algorithm.
    virtual void encodedArray(const short* values, std::size_t count) = 0;
    virtual void encodedArray(const int* values, std::size_t count) = 0;
    virtual void encodedArray(const long* values, std::size_t count) = 0;
    virtual void encodedArray(const float* values, std::size_t count) = 0;
    virtual void encodedArray(const double* values, std::size_t count) = 0;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_FISARRAYHANDLER_H
