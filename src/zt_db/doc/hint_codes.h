#pragma once

namespace zt {

/// Codes of the hints that CDBDoc::UpdateAllViews delivers.
namespace HintCode {
inline constexpr int Changed0 = 0;  ///< the database changed, and the run state may have
inline constexpr int Changed1 = 1;  ///< the same
inline constexpr int Changed = 3;   ///< the database changed: a transaction, an undo or a redo
inline constexpr int Unit = 4;      ///< the current units changed
inline constexpr int SelectionAdded = 5;
inline constexpr int SelectionRemoved = 6;
inline constexpr int PreMode = 7;   ///< switch to the pre-processing side
inline constexpr int PostMode = 8;  ///< switch to the post-processing side
inline constexpr int ExecutionStarted = 9;
inline constexpr int ExecutionEnded = 10;
inline constexpr int Tracer = 11;  ///< the tracer picks a checker entry
inline constexpr int Refresh = 12;
inline constexpr int DesignForceRemoved = 14;
inline constexpr int ClosePanes = 18;  ///< docked panes close
inline constexpr int PostDatabaseChanged = 20;
inline constexpr int PreferencesChanged = 27;
inline constexpr int DesignForceChanged = 30;
inline constexpr int CommandText = 39;  ///< a command by text, in the hint's text
}  // namespace HintCode

}  // namespace zt
