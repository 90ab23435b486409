#pragma once

#include <functional>
#include <utility>
#include <variant>

namespace tul {

/// Something that a panel shows: fixed, or computed from the records each time a face asks for it. So no
/// caption or enabled state is kept twice.
template <class T>
class Live {
  public:
    Live(T fixed) : source_(std::move(fixed)) {}
    Live(const char* fixed) requires std::is_constructible_v<T, const char*> &&(!std::is_same_v<T, bool>)
        : source_(T(fixed)) {}
    template <class F>
    requires std::is_invocable_r_v<T, F> Live(F computed)
        : source_(std::function<T()>(std::move(computed))) {}

    T operator()() const {
        if (const T* fixed = std::get_if<T>(&source_)) return *fixed;
        return std::get<std::function<T()>>(source_)();
    }

  private:
    std::variant<T, std::function<T()>> source_;
};

}  // namespace tul
