#pragma once

#include <optional>
#include <vector>

#include "zt_db/post/load_cursor.h"

namespace zt {

/// A quantity that is linear in the response: displacements of nodes in one direction with factors, or a sum of
/// forces. A force is told twice: by the forces in sections, which cases without envelopes have, and by the masses that
/// modes accelerate.
struct ResponseForm {
    struct Term {
        std::uint32_t place = 0;  ///< of a node in the arrays of results
        double factor = 0.0;
    };
    struct Section {
        std::size_t row = 0;
        std::array<double, 3> factors{};  ///< of N, Vy, Vz
    };

    std::size_t component = 0;
    std::vector<Term> displacements{};
    std::vector<Section> sections{};
    std::vector<Term> masses{};
    bool isForce = false;

    /// Adds another form of the same component and kind.
    void Add(const ResponseForm& other, double factor);
};

/// The greatest and the least value and, of a time history, when they come, in s.
struct TimedBounds {
    Bounds bounds{};
    double maxTime = 0.0;
    double minTime = 0.0;
};

/// Reads quantities of a load case or a combination as they are in every state, so that a drift is that of one state
/// and not a difference of extremes: cases with modes are put together from the modes.
class StoryResponse {
public:
    /// Opens a combination; false when one of its cases has no results that tell its states: a spectrum or a time
    /// history needs the coordinates of its modes.
    bool Open(const CPostDataBase& database, const T_PLCOM_D& combination);
    /// False when the quantity is not known: a force without sections or without masses.
    bool Read(const ResponseForm& form, TimedBounds& bounds) const;
    /// The value of greater magnitude; none when the quantity is not known.
    std::optional<double> Governing(const ResponseForm& form) const;
    /// Whether values have a greatest and a least.
    bool HasEnvelope() const { return hasEnvelope_; }

private:
    struct Leaf {
        ResultArray displacement;
        ResultArray force;
        std::vector<double> peaks;        ///< of the modes of a spectrum
        std::vector<double> correlation;  ///< between them; empty for a root of the sum of squares
        std::vector<double> states;       ///< of a time history, the coordinates of all modes a state
        double step = 0.0;
        std::size_t modes = 0;
        bool isModal() const { return modes > 0; }
    };

    /// The place of a case that tells its states, or -1.
    int AddLeaf(const CPostDataBase& database, int kind, std::uint32_t key);
    bool ReadModes(const ResultSource& results, std::size_t modes);
    static bool ReadSpectrum(const ResultSource& results, std::uint32_t key, Leaf& leaf);
    static bool ReadHistory(const ResultSource& results, std::uint32_t key, Leaf& leaf);
    bool ReadNode(const CaseTree& node, const ResponseForm& form, TimedBounds& bounds) const;
    bool ReadLeaf(const Leaf& leaf, const ResponseForm& form, TimedBounds& bounds) const;
    bool ReadStatic(const Leaf& leaf, const ResponseForm& form, double& value) const;
    bool OfModes(const Leaf& leaf, const ResponseForm& form, std::vector<double>& values) const;

    CaseTree root_;
    std::vector<Leaf> leaves_;
    std::vector<ResultArray> shapes_;
    std::vector<double> squares_;  ///< squares of the circular frequencies
    bool hasEnvelope_ = false;
};

}  // namespace zt
