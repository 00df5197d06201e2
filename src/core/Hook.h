#pragma once

#include <concepts>
#include <functional>
#include <utility>

namespace qvm {

template <class Signature>
class Hook;

/// A call to whoever stands above. While nobody has filled it, it does nothing.
template <class... Args>
class Hook<void(Args...)> {
public:
    Hook() = default;
    template <class Call>
    requires std::invocable<Call&, Args...> Hook(Call call) : call_(std::move(call)) {}

    void operator()(Args... args) const {
        if (call_) {
            call_(std::forward<Args>(args)...);
        }
    }

private:
    std::function<void(Args...)> call_;
};

} // namespace qvm
