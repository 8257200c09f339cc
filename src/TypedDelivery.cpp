// SPDX-License-Identifier: MIT
#include "TypedDelivery.h"
#include "ArrayDelivery.h"
#include "Vesk/FastInfoset/DWordEncoding.h"
#include "Vesk/FastInfoset/DoubleEncoding.h"
#include "Vesk/FastInfoset/FISArrayHandler.h"
#include "Vesk/FastInfoset/FISContentHandler.h"
#include "Vesk/FastInfoset/FloatEncoding.h"
#include "Vesk/FastInfoset/HexEncoding.h"
#include "Vesk/FastInfoset/IntEncoding.h"
#include "Vesk/FastInfoset/LongEncoding.h"
#include "Vesk/FastInfoset/ShortEncoding.h"

namespace Vesk::FastInfoset
{

void TypedDelivery::begin(FISContentHandler* handler)
{
    _handler = handler;
    _isArrayHandlerKnown = false;
}

// Asked for with the first numbers of a document: most documents have none.
FISArrayHandler* TypedDelivery::arrayHandler()
{
    if (!_isArrayHandlerKnown)
        _arrayHandler = dynamic_cast<FISArrayHandler*>(_handler);
    _isArrayHandlerKnown = true;
    return _arrayHandler;
}

bool TypedDelivery::deliver(BitStreamReader& reader, unsigned int algorithm)
{
    switch (algorithm)
    {
    case HexEncoding::TYPE:
        HexEncoding::deliver(reader, *_handler);
        return true;
    case DWordEncoding::TYPE:
        DWordEncoding::deliver(reader, *_handler);
        return true;
    case ShortEncoding::TYPE:
        ShortEncoding::deliver(reader, *_handler, arrayHandler());
        return true;
    case IntEncoding::TYPE:
        IntEncoding::deliver(reader, *_handler, arrayHandler());
        return true;
    case LongEncoding::TYPE:
        LongEncoding::deliver(reader, *_handler, arrayHandler());
        return true;
    case FloatEncoding::TYPE:
        FloatEncoding::deliver(reader, *_handler, arrayHandler());
        return true;
    case DoubleEncoding::TYPE:
        DoubleEncoding::deliver(reader, *_handler, arrayHandler());
        return true;
    default:
        return false;
    }
}

void TypedDelivery::deliver(const Encoding& value)
{
    const int algorithm = arrayHandler() ? value.type() : 0;
    switch (algorithm)
    {
    case ShortEncoding::TYPE:
        return deliverArray<ShortEncoding>(value);
    case IntEncoding::TYPE:
        return deliverArray<IntEncoding>(value);
    case LongEncoding::TYPE:
        return deliverArray<LongEncoding>(value);
    case FloatEncoding::TYPE:
        return deliverArray<FloatEncoding>(value);
    case DoubleEncoding::TYPE:
        return deliverArray<DoubleEncoding>(value);
    default:
        value.handle(_handler);
    }
}

template <class NumbersEncoding>
void TypedDelivery::deliverArray(const Encoding& value)
{
    ArrayDelivery::deliver(static_cast<const NumbersEncoding&>(value).values(), *_arrayHandler);
}

} // namespace Vesk::FastInfoset
