// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_TYPEDDELIVERY_H
#define VESK_FASTINFOSET_TYPEDDELIVERY_H

namespace Vesk::FastInfoset
{

class BitStreamReader;
class Encoding;
class FISArrayHandler;
class FISContentHandler;

/// Brings numbers and octets from the reader to the handler without an Encoding in between.
///
/// That is for values that enter no table and that nobody asks for as text. Like an Encoding it delivers nothing of a
/// value whose octets are not all there.
class TypedDelivery
{
public:
    /// Starts with a document. The handler is borrowed; null if it takes no typed values.
    void begin(FISContentHandler* handler);

    bool isPossible() const { return _handler != nullptr; }

    /// Reads the value of an algorithm, length first, and delivers it. Returns false, with nothing read, for algorithms
    /// other than those of numbers and octets. Requires: isPossible().
    bool deliver(BitStreamReader& reader, unsigned int algorithm);

    /// Delivers a value that had to become an Encoding. Requires: isPossible().
    void deliver(const Encoding& value);

private:
    template <class NumbersEncoding>
    void deliverArray(const Encoding& value);
    FISArrayHandler* arrayHandler();

    FISContentHandler* _handler = nullptr;
    FISArrayHandler* _arrayHandler = nullptr; // the handler, if it takes arrays
    bool _isArrayHandlerKnown = false;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_TYPEDDELIVERY_H
