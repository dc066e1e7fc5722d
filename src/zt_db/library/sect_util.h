#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zt_db/records/sect.h"

namespace zt {

/// Kinds of sections by where their properties come from: the number that CSectUtil::GetSectTypeNo tells.
enum SectTypeNo { kSectNone, kSectDatabase, kSectUser, kSectComposite, kSectValue, kSectTapered, kSectCombined };

/// Shapes of sections and their properties. Records and results are in the current units: every property is a power of
/// the length unit that the sizes have. A section whose sizes make no shape has properties of 0.
class CSectUtil {
public:
    /// The type number of a section; 0 for a kind that does not exist.
    static int GetSectTypeNo(const T_SECT_D& section);

    /// The codes of the regular shapes, the names of the composite and of the combined ones, in the order of their
    /// indexes.
    static void GetRegShapeNameList(std::vector<std::string>& names);
    static void GetSrcShapeNameList(std::vector<std::string>& names);
    static void GetComShapeNameList(std::vector<std::string>& names);
    /// Index of a shape, -1 when there is none of the name. Regular shapes are known by code and by name.
    static int GetShapeIndexFromNameReg(std::string_view shape);
    static int GetShapeIndexFromNameSrc(std::string_view shape);
    static int GetShapeIndexFromNameCom(std::string_view shape);

    /// Properties from the sizes. The position along a tapered member changes nothing: a record has the sizes of one
    /// end.
    static T_SECT_STIFFNESS GetProperStiffPosition(const T_SECT_D& section, int position);
    static T_SECT_DESIGN GetProperDesignPosition(const T_SECT_D& section, int position);
    /// Lengths of the outer outline and of the outlines of the holes.
    static double GetStandForPeriOut(const T_SECT_D& section);
    static double GetStandForPeriIn(const T_SECT_D& section);
    /// Distances of the centroid from the left and from the lower edge.
    static double GetStandForYBar(const T_SECT_D& section);
    static double GetStandForZBar(const T_SECT_D& section);
};

}  // namespace zt
