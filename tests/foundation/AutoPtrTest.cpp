// SPDX-License-Identifier: MIT
#include "Vesk/AutoPtr.h"
#include "Vesk/RefCountedObject.h"
#include <gtest/gtest.h>
#include <thread>

namespace Vesk
{

namespace
{

class Counted : public RefCountedObject // NOLINT(cppcoreguidelines-virtual-class-destructor)
{
public:
    explicit Counted(bool& deleted)
        : _deleted(deleted)
    {
    }
    int answer() const { return 42; }

protected:
    ~Counted() override { _deleted = true; }

private:
    bool& _deleted;
};

class DerivedCounted : public Counted
{
public:
    using Counted::Counted;
};

} // namespace

TEST(AutoPtr, TakesOverOrShares)
{
    bool deleted = false;
    auto* object = new Counted(deleted);
    EXPECT_EQ(object->referenceCount(), 1);
    {
        const AutoPtr<Counted> owner(object);
        EXPECT_EQ(object->referenceCount(), 1);
        {
            const AutoPtr<Counted> sharer(object, true);
            EXPECT_EQ(object->referenceCount(), 2);
            EXPECT_EQ(sharer.get(), owner.get());
        }
        EXPECT_EQ(object->referenceCount(), 1); // NOLINT(clang-analyzer-cplusplus.NewDelete)
        EXPECT_EQ(owner->answer(), 42);
        EXPECT_EQ((*owner).answer(), 42);
        EXPECT_FALSE(deleted);
    }
    EXPECT_TRUE(deleted);
}

TEST(AutoPtr, CopiesShareAndMovesDoNot)
{
    bool deleted = false;
    AutoPtr<Counted> first(new Counted(deleted));
    AutoPtr<Counted> copy(first);
    EXPECT_EQ(first->referenceCount(), 2);
    AutoPtr<Counted> moved(std::move(copy));
    EXPECT_EQ(first->referenceCount(), 2);
    EXPECT_TRUE(copy.isNull()); // NOLINT(bugprone-use-after-move, clang-analyzer-cplusplus.Move)

    AutoPtr<Counted>& same = moved;
    moved = same;
    EXPECT_EQ(first->referenceCount(), 2);
    first = nullptr;
    EXPECT_EQ(moved->referenceCount(), 1);
    EXPECT_FALSE(deleted);
    moved = AutoPtr<Counted>();
    EXPECT_TRUE(deleted);
}

TEST(AutoPtr, ConvertsToTheBase)
{
    bool deleted = false;
    {
        AutoPtr<Counted> base;
        const AutoPtr<DerivedCounted> derived(new DerivedCounted(deleted));
        base = derived;
        EXPECT_EQ(base.get(), derived.get());
        EXPECT_EQ(base->referenceCount(), 2);
    }
    EXPECT_TRUE(deleted);
}

TEST(AutoPtr, NullThrowsWhenFollowed)
{
    const AutoPtr<Counted> null;
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(null);
    EXPECT_THROW(null->answer(), NullPointerException);
    EXPECT_THROW((*null).answer(), NullPointerException);
    EXPECT_TRUE(AutoPtr<Counted>(nullptr, true).isNull());
}

TEST(AutoPtr, CountIsSafeAcrossThreads)
{
    bool deleted = false;
    {
        const AutoPtr<Counted> shared(new Counted(deleted));
        const auto copyOften = [&shared]
        {
            for (int i = 0; i < 20000; ++i)
                AutoPtr<Counted>(shared)->answer();
        };
        std::thread threads[4];
        for (std::thread& thread : threads)
            thread = std::thread(copyOften);
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(shared->referenceCount(), 1);
    }
    EXPECT_TRUE(deleted);
}

} // namespace Vesk
