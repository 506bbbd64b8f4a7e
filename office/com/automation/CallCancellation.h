#pragma once

#include <memory>

namespace mergeloom::com {

/// Registers a message filter (IMessageFilter) of this thread, through which other threads can cancel its
/// calls. It stays registered while the result is held.
std::shared_ptr<void> allowCancellation();

/// Makes the waiting call of a thread return RPC_E_CALL_CANCELED. Must be repeated until the call has
/// returned.
void cancelCalls(unsigned long thread);

}  // namespace mergeloom::com
