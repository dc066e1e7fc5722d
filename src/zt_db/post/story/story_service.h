#pragma once

#include <cmath>
#include <optional>
#include <vector>

#include "zt_db/post/post_ctrl.h"
#include "zt_db/post/story/story_model.h"
#include "zt_db/post/story/story_rows.h"
#include "zt_db/records/rstp.h"

namespace zt {

/// The displacements of a story in a direction, in m: the values that govern.
struct StoryShift {
    double greatest = 0.0;
    std::uint32_t node = 0;  ///< number
    double average = 0.0;
    double center = 0.0;
};

/// The drifts of a story in a direction, in m.
struct StoryDrift {
    bool isKnown = false;  ///< false where the story has no vertical line of nodes
    double greatest = 0.0;
    std::uint32_t node = 0;  ///< number of the upper one
    double average = 0.0;
    double center = 0.0;

    double Of(int method) const { return method == DriftMethod::CenterOfMass ? center : greatest; }
};

/// The story shear in a direction, in N, and what frames and braces carry of it.
struct StoryShear {
    bool isKnown = false;
    bool hasShares = false;
    double sum = 0.0;
    double frame = 0.0;
    double brace = 0.0;
};

/// One load case or combination, story by story; values in SI units.
class StoryCase {
public:
    StoryCase(const StoryModel& model, const StoryResponse& response) : model_(model), response_(response) {}

    StoryShift Shift(std::size_t story, std::size_t direction) const;
    StoryDrift Drift(std::size_t story, std::size_t direction) const;
    StoryShear Shear(std::size_t story, std::size_t direction) const;
    /// The moment of the shears of a story and of those above it at the foot of the story.
    StoryShear Overturning(std::size_t story, std::size_t direction) const;
    /// The vertical force that a story carries at its top; none when it is not known.
    std::optional<double> Pressure(std::size_t story) const { return response_.Governing(model_.Pressure(story, 2)); }
    /// The direction in which the centres of mass move more.
    int Direction() const;

    const StoryModel& Model() const { return model_; }
    const StoryResponse& Response() const { return response_; }

private:
    template <class FormOf>
    StoryShear SharesOf(FormOf formOf) const;

    const StoryModel& model_;
    const StoryResponse& response_;
};

/// What the story services share. A service gives 0, and no records, when there is nothing. Where a run has stored the
/// records of a service those are what it gives; otherwise they are computed. Records come in the user's current units.
class StoryService {
public:
    explicit StoryService(const CPostCtrl& control) : control_(control) {}

protected:
    const CPostDataBase& Database() const { return control_.Database(); }
    bool HasModel() const { return Database().Results() && Database().Model(); }
    const StoryModel& Model() const { return Database().Stories(); }
    /// The drift restriction of the model; its initial values where there is none.
    T_RSTP_D Restriction() const;
    bool Open(int kind, std::uint32_t key, StoryResponse& response) const;

    /// Serves records that hang on the model only: `fill(record, story)` for each story.
    template <class Record, class Fill>
    int ServeModel(int kind, std::uint32_t key, std::string_view service, std::vector<Record>& records,
                   Fill fill) const {
        records.clear();
        if (!HasModel()) return 0;
        records = StoredStoryRecords<Record>(*Database().Results(), kind, key, service);
        if (records.empty()) {
            records = Headed<Record>(0);
            for (std::size_t i = 0; i < records.size(); ++i) fill(records[i], i);
        }
        return Finish(records);
    }
    /// Serves records of a load case: `fill(case, records)` for all stories at once.
    template <class Record, class Fill>
    int ServeCase(int kind, std::uint32_t key, std::string_view service, std::vector<Record>& records,
                  Fill fill) const {
        records.clear();
        if (!HasModel()) return 0;
        records = StoredStoryRecords<Record>(*Database().Results(), kind, key, service);
        StoryResponse response;
        if (records.empty() && Open(kind, key, response)) {
            const StoryCase loadCase(Model(), response);
            records = Headed<Record>(loadCase.Direction());
            fill(loadCase, records);
        }
        return Finish(records);
    }
    /// Serves what no analysis stores yet unless a run has stored the records themselves.
    template <class Record>
    int ServeStored(int kind, std::uint32_t key, std::string_view service, std::vector<Record>& records) const {
        records.clear();
        if (!HasModel()) return 0;
        records = StoredStoryRecords<Record>(*Database().Results(), kind, key, service);
        return Finish(records);
    }
    /// Calls `fill(record.part[direction], story, direction)` for every story and direction.
    template <class Record, class Fill>
    static void ForEachPart(std::vector<Record>& records, Fill fill) {
        for (std::size_t i = 0; i < records.size(); ++i) {
            for (std::size_t direction = 0; direction < 2; ++direction) {
                fill(records[i].part[direction], i, direction);
            }
        }
    }

    const CPostCtrl& control_;

private:
    template <class Record>
    std::vector<Record> Headed(int direction) const {
        std::vector<Record> records(Model().Stories().size());
        for (std::size_t i = 0; i < records.size(); ++i) {
            const StoryLevel& story = Model().Stories()[i];
            records[i].head = {.seq = static_cast<std::uint32_t>(i + 1),
                               .mdul = story.mdul,
                               .story = story.key,
                               .level = story.level,
                               .height = story.height,
                               .direction = direction};
        }
        return records;
    }
    template <class Record>
    int Finish(std::vector<Record>& records) const {
        for (Record& record : records) RecordToCurrent(record, control_.Units());
        return records.empty() ? 0 : 1;
    }
};

}  // namespace zt
