#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace velda {

/// Non-owning reference to a callable, for callbacks that do not outlive the call they are passed to.
/// Unlike std::function it never allocates.
template <class Signature>
class FunctionRef;

template <class Result, class... Args>
class FunctionRef<Result(Args...)> {
public:
    template <class Callable>
    requires(!std::is_same_v<std::remove_cvref_t<Callable>, FunctionRef>)
        FunctionRef(Callable&& callable)  // NOLINT: implicit on purpose, so that a lambda can be passed as it stands
        : object_(const_cast<void*>(static_cast<const void*>(std::addressof(callable)))),
          call_([](void* object, Args... args) -> Result {
              return (*static_cast<std::remove_reference_t<Callable>*>(object))(std::forward<Args>(args)...);
          }) {}

    Result operator()(Args... args) const { return call_(object_, std::forward<Args>(args)...); }

private:
    void* object_;
    Result (*call_)(void*, Args...);
};

}  // namespace velda
