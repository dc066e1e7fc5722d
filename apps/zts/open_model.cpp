#include "open_model.h"

#include <iostream>

std::unique_ptr<zt::CDBDoc> OpenModel(const std::string& path, zt::OpenMode mode) {
    zt::OpenReport report;
    auto doc = zt::CDBDoc::Open(path, mode, report);
    if (!report.message.empty()) std::cerr << report.message << '\n';
    for (const std::string& loss : report.losses) std::cerr << loss << '\n';
    return doc;
}
