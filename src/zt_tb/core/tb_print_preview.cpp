#include "zt_tb/core/tb_print_preview.h"

#include <cmath>

#include "velda_base/host/application_host.h"
#include "zt_tb/core/tb_view.h"

namespace zt {
namespace {

constexpr double kPointsPerMillimetre = 72.0 / 25.4;

int PointsOf(double millimetres) { return static_cast<int>(std::lround(millimetres * kPointsPerMillimetre)); }

}  // namespace

void CTBPrintPreview::GetMarginDPUnit(int& left, int& top, int& right, int& bottom) {
    left = PointsOf(m_Margins.left);
    top = PointsOf(m_Margins.top);
    right = PointsOf(m_Margins.right);
    bottom = PointsOf(m_Margins.bottom);
}

bool CTBPrintPreview::OnPreparePrinting(velda::PrintJob& job) {
    job.fontSize = m_nPrintFontSize;
    GetMarginDPUnit(job.margins.left, job.margins.top, job.margins.right, job.margins.bottom);
    return velda::ApplicationHost::Current().GetPrinter().Prepare(job);
}

bool CTBPrintPreview::OnFilePrintPreview(CTBView& view) { return view.Print(true); }

}  // namespace zt
