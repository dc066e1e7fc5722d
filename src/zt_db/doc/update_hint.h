#pragma once

#include <string>

namespace zt {

/// Base of the objects that go out with an update.
class CObject {
public:
    virtual ~CObject() = default;
};

/// What goes out with an update: the index of the database that changed, for CMDBCtrl::GetDB, and a text.
struct T_UPDATE_HINT : CObject {
    int dbIndex = 0;
    std::string text;
};

}  // namespace zt
