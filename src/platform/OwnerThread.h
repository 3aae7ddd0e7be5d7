// The thread that an object belongs to.
#pragma once

#include <thread>

namespace platform {

/// A member of an object that only the thread that made it may call. The functions that another
/// thread could call by mistake begin with `assert(owner_.isCaller())`.
class OwnerThread {
public:
    [[nodiscard]] bool isCaller() const { return std::this_thread::get_id() == id_; }

private:
    std::thread::id id_ = std::this_thread::get_id();
};

} // namespace platform
