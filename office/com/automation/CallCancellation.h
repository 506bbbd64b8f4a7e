#pragma once

#include <memory>

namespace mergeloom::com {

/// Returns what lets other threads give up the calls that this thread makes, which keeps it possible while it
/// is held: a message filter (IMessageFilter) of this thread.
std::shared_ptr<void> allowCancellation();

/// Makes the waiting call of a thread return RPC_E_CALL_CANCELED. Has to be repeated until it returns.
void cancelCalls(unsigned long thread);

}  // namespace mergeloom::com
