#pragma once

#include <utility>

namespace zvr {

/// What the owner of a value is told when it changes.
struct ChangedLook {
    static void Tell(auto& owner) { owner.MarkDirty(); }
};
struct ChangedPlace {
    static void Tell(auto& owner) { owner.MarkMoved(); }
};

/// A value of a form or a control. Setting it to what it holds costs a compare; any other value marks the
/// owner dirty, and the screen repaints the owner at the next turn of the event loop.
template <typename Owner, typename T, typename Changed = ChangedLook>
class Property {
public:
    explicit Property(Owner& owner, T initial = T{}) : owner(&owner), value(std::move(initial)) {}
    Property(const Property&) = delete;

    Property& operator=(const Property& other) { return *this = other.value; }
    Property& operator=(const T& next) {
        if (value == next) {
            return *this;
        }
        value = next;
        Changed::Tell(*owner);
        return *this;
    }

    operator const T&() const { return value; }  // NOLINT: reads like the plain value
    [[nodiscard]] const T& get() const { return value; }
    const T* operator->() const { return &value; }
    const T& operator*() const { return value; }

    friend bool operator==(const Property& a, const T& b) { return a.value == b; }

private:
    Owner* owner;
    T value;
};

}  // namespace zvr
