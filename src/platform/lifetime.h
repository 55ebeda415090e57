#pragma once

#include <memory>
#include <utility>

namespace zvr {

/// Tells what comes later, from the event loop or another service, whether the object that asked for it is still there:
/// a member of that object.
/// Its own thread asks; any thread may carry a watch or a guarded task about.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// True as long as the owner lives and hasn't renewed.
    class Watch {
    public:
        [[nodiscard]] explicit operator bool() const { return !token.expired(); }

    private:
        friend class Lifetime;
        explicit Watch(std::weak_ptr<char> token) : token(std::move(token)) {}
        std::weak_ptr<char> token;
    };
    [[nodiscard]] Watch Watched() const { return Watch(token); }

    /// The task, which then does nothing once the owner has gone.
    template <typename Task>
    [[nodiscard]] auto Guard(Task task) const {
        return [watch = Watched(), task = std::move(task)](const auto&... values) {
            if (watch) {
                task(values...);
            }
        };
    }

    /// Whoever watches by now finds the owner gone: what was asked for so far is no longer wanted.
    void Renew() { token = std::make_shared<char>(); }

private:
    std::shared_ptr<char> token = std::make_shared<char>();
};

}  // namespace zvr
