#include "zt_db/exchange/member_kinds.h"

#include <string>

#include "zt_db/exchange/table_reader.h"
#include "zt_db/records/load_case_type.h"

namespace zt {
namespace {

constexpr int kColumn = 101;
constexpr int kLine = 200;
constexpr int kBeam = 201;
constexpr int kWall = 202;
constexpr int kSubBeam = 205;
constexpr int kBrace = 206;
constexpr int kTrussChord = 251;
constexpr int kTrussWeb = 252;
constexpr int kPurlin = 261;
constexpr int kGirt = 262;
constexpr int kSlab = 301;

struct Word {
    std::string_view part;
    int type;
};

// The first part that a word holds decides, so that special words stand before general ones.
constexpr Word kWords[] = {
    {"purlin", kPurlin},    {"girt", kGirt},      {"rail", kGirt},         {"secondarycolumn", kColumn},
    {"column", kColumn},    {"pillar", kColumn},  {"pile", kColumn},       {"bracing", kBrace},
    {"brace", kBrace},      {"wind", kBrace},     {"diagonal", kBrace},    {"trusschord", kTrussChord},
    {"chord", kTrussChord}, {"truss", kTrussWeb}, {"secondary", kSubBeam}, {"subbeam", kSubBeam},
    {"joist", kSubBeam},    {"rib", kSubBeam},    {"rafter", kBeam},       {"girder", kBeam},
    {"beam", kBeam},        {"lintel", kBeam},    {"line", kLine},
};

constexpr Word kWritten[] = {
    {"Column", kColumn}, {"Beam", kBeam}, {"Secondary beam", kSubBeam}, {"Brace", kBrace},    {"Purlin", kPurlin},
    {"Girt", kGirt},     {"Line", kLine}, {"Truss chord", kTrussChord}, {"Truss", kTrussWeb}, {"Wall", kWall},
    {"Plate", kSlab},
};

struct LoadWord {
    std::string_view part;
    std::string_view type;
    LoadCaseWords words;
};

constexpr LoadWord kLoadWords[] = {
    {"wind", LoadCaseType::Wind, {"Variable", "Wind"}},
    {"snow", LoadCaseType::Snow, {"Variable", "Snow"}},
    {"seismic", LoadCaseType::Earthquake, {"Accidental", "Seismic"}},
    {"earthquake", LoadCaseType::Earthquake, {"Accidental", "Seismic"}},
    {"temperature", LoadCaseType::Temperature, {"Variable", "Temperature"}},
    {"selfweight", LoadCaseType::Dead, {"Permanent", "Self weight"}},
    {"dead", LoadCaseType::Dead, {"Permanent", "Others"}},
    {"completion", LoadCaseType::Dead, {"Permanent", "Others"}},
    {"live", LoadCaseType::Live, {"Variable", "Static"}},
    {"permanent", LoadCaseType::Dead, {"Permanent", "Others"}},
    {"variable", LoadCaseType::Live, {"Variable", "Static"}},
    {"accidental", LoadCaseType::Accidental, {"Accidental", "Static"}},
};

/// The first word of the list that a text holds; null when it holds none.
const LoadWord* FindLoadWord(std::string_view text) {
    const std::string word = Comparable(text);
    for (const LoadWord& known : kLoadWords) {
        if (word.find(known.part) != std::string::npos) return &known;
    }
    return nullptr;
}

}  // namespace

int MemberTypeOfWord(std::string_view word) {
    const std::string text = Comparable(word);
    for (const Word& known : kWords) {
        if (text.find(known.part) != std::string::npos) return known.type;
    }
    return 0;
}

int MemberTypeOfLie(Lie lie) {
    switch (lie) {
        case Lie::Vertical: return kColumn;
        case Lie::Horizontal: return kBeam;
        case Lie::Inclined: break;
    }
    return kBrace;
}

std::string_view WordOfMemberType(int type) {
    for (const Word& word : kWritten) {
        if (word.type == type) return word.part;
    }
    return {};
}

int SurfaceTypeOf(std::string_view word, bool upright) {
    const std::string text = Comparable(word);
    if (text.find("wall") != std::string::npos) return kWall;
    return upright ? kWall : kSlab;
}

std::string_view LoadCaseTypeOf(std::string_view action, std::string_view loadType, std::string_view groupType) {
    for (const std::string_view text : {loadType, groupType, action}) {
        if (const LoadWord* word = FindLoadWord(text)) return word->type;
    }
    return LoadCaseType::Live;
}

LoadCaseWords WordsOfLoadCaseType(std::string_view type) {
    for (const std::string_view part : {"dead", "live", "accidental", "wind", "snow", "seismic", "temperature"}) {
        const LoadWord* word = FindLoadWord(part);
        if (word->type == type) return word->words;
    }
    return {"Variable", "Others"};
}

}  // namespace zt
