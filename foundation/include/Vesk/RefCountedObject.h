// SPDX-License-Identifier: MIT
#ifndef VESK_REFCOUNTEDOBJECT_H
#define VESK_REFCOUNTEDOBJECT_H

#include "Vesk/Foundation.h"
#include <atomic>

namespace Vesk
{

/// Base of objects that are shared by reference count and delete themselves with their last reference.
///
/// The creator owns the first reference. Counting is atomic; everything else about the object is not. Instances live on
/// the heap only and are not copied.
///
/// The destructor is virtual for release() and not public, so that nobody else deletes.
class VESK_FOUNDATION_API RefCountedObject // NOLINT(cppcoreguidelines-virtual-class-destructor)
{
public:
    RefCountedObject(const RefCountedObject&) = delete;
    RefCountedObject& operator=(const RefCountedObject&) = delete;

    /// Adds a reference.
    void duplicate() const noexcept { _referenceCount.fetch_add(1, std::memory_order_relaxed); }

    /// Gives a reference up; the last one deletes the object.
    void release() const noexcept
    {
        // Acquire and release: what other owners did to the object happens before its destruction.
        if (_referenceCount.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

    /// The number of references. With several owners it may have changed when it is looked at.
    int referenceCount() const noexcept { return _referenceCount.load(std::memory_order_relaxed); }

protected:
    RefCountedObject() = default;
    virtual ~RefCountedObject() = default;

private:
    mutable std::atomic<int> _referenceCount{1};
};

} // namespace Vesk

#endif // VESK_REFCOUNTEDOBJECT_H
