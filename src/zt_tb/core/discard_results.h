#pragma once

namespace zt {

/// Asks whether the current results may be discarded, so that the model can be changed, and discards them. False when
/// there are none, so that nothing was asked.
bool AskToDiscardResults();

}  // namespace zt
