#pragma once

#include <tuple>

#include "zt_db/records/actl.h"
#include "zt_db/records/bmla.h"
#include "zt_db/records/bwld.h"
#include "zt_db/records/frls.h"
#include "zt_db/records/lnld.h"
#include "zt_db/records/load.h"
#include "zt_db/records/matl.h"
#include "zt_db/records/mbtp.h"
#include "zt_db/records/mctl.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/name.h"
#include "zt_db/records/offs.h"
#include "zt_db/records/pmas.h"
#include "zt_db/records/pont.h"
#include "zt_db/records/ptld.h"
#include "zt_db/records/rigd.h"
#include "zt_db/records/rslt.h"
#include "zt_db/records/rstp.h"
#include "zt_db/records/sbla.h"
#include "zt_db/records/sdsp.h"
#include "zt_db/records/sect.h"
#include "zt_db/records/splc.h"
#include "zt_db/records/spts.h"
#include "zt_db/records/stld.h"
#include "zt_db/records/stnd.h"
#include "zt_db/records/stor.h"
#include "zt_db/records/swgt.h"
#include "zt_db/records/temperature.h"
#include "zt_db/records/thik.h"
#include "zt_db/records/thlc.h"

namespace zt {

/// Every record class of the model database. A class that stands here has a table in the model file, can be reached by
/// scripts, and takes part in reference checks.
using RecordClassList =
    std::tuple<CClassPont, CClassMemb, CClassMatl, CClassSect, CClassThik, CClassStor, CClassMdul, CClassStld,
               CClassName, CClassMbtp, CClassPrel, CClassStnd, CClassLcom, CClassSpts, CClassFrls, CClassRigd,
               CClassLnld, CClassCmld, CClassBltp, CClassBmla, CClassBwtp, CClassBwld, CClassSltp, CClassSbla,
               CClassPtld, CClassPmas, CClassSwgt, CClassActl, CClassSpfc, CClassSplc, CClassThfc, CClassThlc,
               CClassStmp, CClassPtmp, CClassSdsp, CClassOffs, CClassRgde, CClassRstp, CClassRslt, CClassMctl>;

}  // namespace zt
