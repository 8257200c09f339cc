// SPDX-License-Identifier: MIT
#ifndef VESK_AUTOPTR_H
#define VESK_AUTOPTR_H

#include "Vesk/Bugcheck.h"
#include <cstddef>
#include <utility>

namespace Vesk
{

// The static analyzer does not follow atomic counts and takes each release for the last.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete)

/// Owns one reference to an object that counts its references, such as a RefCountedObject, or is null.
///
/// Copies share the object. C needs duplicate() and release(). An AutoPtr itself is used by one thread at a time.
template <class C>
class AutoPtr
{
public:
    /// Null.
    AutoPtr() noexcept = default;
    AutoPtr(std::nullptr_t) noexcept {}
    /// Takes the caller's reference over.
    AutoPtr(C* object) noexcept
        : _object(object)
    {
    }
    /// Takes the caller's reference over or, with shared, adds one of its own.
    AutoPtr(C* object, bool shared) noexcept
        : _object(object)
    {
        if (_object && shared)
            _object->duplicate();
    }
    AutoPtr(const AutoPtr& other) noexcept
        : AutoPtr(other._object, true)
    {
    }
    AutoPtr(AutoPtr&& other) noexcept
        : _object(std::exchange(other._object, nullptr))
    {
    }
    /// From a pointer to a derived class.
    template <class Other>
    AutoPtr(const AutoPtr<Other>& other) noexcept
        : AutoPtr(other.get(), true)
    {
    }
    ~AutoPtr()
    {
        if (_object)
            _object->release();
    }

    /// Gives the reference up and takes that of the other.
    AutoPtr& operator=(AutoPtr other) noexcept
    {
        std::swap(_object, other._object);
        return *this;
    }

    /// The object. Throws NullPointerException when there is none.
    C& operator*() const { return *checked(); }
    C* operator->() const { return checked(); }

    /// The object or null. It stays this pointer's.
    C* get() const noexcept { return _object; }
    bool isNull() const noexcept { return !_object; }
    explicit operator bool() const noexcept { return _object; }

private:
    C* checked() const
    {
        if (!_object)
            Bugcheck::nullPointer("_object", "include/Vesk/AutoPtr", __LINE__);
        return _object;
    }

    C* _object = nullptr;
};

// NOLINTEND(clang-analyzer-cplusplus.NewDelete)

} // namespace Vesk

#endif // VESK_AUTOPTR_H
