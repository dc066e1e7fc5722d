#pragma once

#include <QProgressDialog>
#include <memory>

#include "velda_base/host/progress.h"

namespace zt {

class QtProgress final : public velda::IProgress {
public:
    void Begin(const std::string& title, int steps) override;
    bool Step(int done) override;
    void End() override { dialog_.reset(); }

private:
    std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace zt
