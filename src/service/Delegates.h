#pragma once

#include <memory>
#include <utility>

/// \file
/// A small observer mechanism. Its one use is to learn of the end of an object's life, and so to clear a half-filled
/// object when its construction or scan throws:
///
///     DelegateBase guard(onDestruction(*this, &Index::clear));
///     ... what may throw ...
///     guard.Disarm();

namespace Kvt::Mrl::Core::Service {

/// What happened. Each kind of event is a class of its own.
class DelegateArgs
{
public:
    virtual ~DelegateArgs() = default;
};

/// The object that told of it is being destroyed.
class DtorNotifierEventArgs final : public DelegateArgs
{};

/// Is told of events.
class IDelegateHandler
{
public:
    virtual ~IDelegateHandler() = default;
    virtual void Handle(const DelegateArgs& args) = 0;
};

/// Answers events of the kind Args by a call of a member function. It doesn't own the object.
template <class T, class Args>
class MemberFuncPtrDelegateHandler final : public IDelegateHandler
{
public:
    using Member = void (T::*)();

    MemberFuncPtrDelegateHandler(T& object, Member member) : object_(object), member_(member) {}

    void Handle(const DelegateArgs& args) override
    {
        if (dynamic_cast<const Args*>(&args) != nullptr)
            (object_.*member_)();
    }

private:
    T& object_;
    Member member_;
};

/// A handler that calls (object.*member)() at the end of the DelegateBase that it is given to.
template <class T>
std::unique_ptr<IDelegateHandler> onDestruction(T& object, void (T::*member)())
{
    return std::make_unique<MemberFuncPtrDelegateHandler<T, DtorNotifierEventArgs>>(object, member);
}

/// Tells its handler of its own destruction, unless it has been disarmed.
class DelegateBase
{
public:
    explicit DelegateBase(std::unique_ptr<IDelegateHandler> handler) : handler_(std::move(handler)) {}

    DelegateBase(const DelegateBase&) = delete;
    DelegateBase& operator=(const DelegateBase&) = delete;

    /// What the handler throws is dropped: another exception may be on its way.
    ~DelegateBase()
    {
        try {
            if (handler_)
                handler_->Handle(DtorNotifierEventArgs());
        } catch (...) {}
    }

    void Disarm() noexcept { handler_.reset(); }

private:
    std::unique_ptr<IDelegateHandler> handler_;
};

} // namespace Kvt::Mrl::Core::Service
