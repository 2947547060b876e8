#pragma once

#include <QObject>
#include <QPointer>

namespace pomwick {

// An interface pointer held weakly: when the object behind it is a QObject and has been deleted,
// it reads as null. (Objects that are not QObjects are the caller's to keep alive.)
template <typename Interface> class WeakInterface {
public:
    WeakInterface& operator=(Interface* target) {
        target_ = target;
        object_ = dynamic_cast<QObject*>(target);
        tracked_ = object_ != nullptr;
        return *this;
    }
    Interface* get() const { return tracked_ && object_ == nullptr ? nullptr : target_; }
    Interface* operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

private:
    Interface* target_ = nullptr;
    QPointer<QObject> object_;
    bool tracked_ = false;
};

} // namespace pomwick
