#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velda_lib/flat_index.h"
#include "zt_db/core/database.h"
#include "zt_tb/modelview/drawn_kind.h"
#include "zt_tb/modelview/geometry.h"

namespace zt {

/// A node, at a place of its own in the list of nodes; key 0 where the place is free.
struct SceneNode {
    std::uint32_t key = 0;
    Vec3 place;
};

/// A member between two nodes, or at one.
struct SceneLine {
    std::uint32_t key = 0;
    DrawnKind kind = DrawnKind::Other;
    std::uint32_t start = 0;  ///< places in the list of nodes
    std::uint32_t end = 0;
    double beta = 0.0;  ///< angle about its axis, in rad
};

/// A member over three nodes or more.
struct SceneFace {
    std::uint32_t key = 0;
    DrawnKind kind = DrawnKind::Other;
    std::vector<std::uint32_t> corners;  ///< places in the list of nodes
    std::vector<std::uint32_t> holes;    ///< places in the list of faces
};

/// How a support holds a node against a movement or a turn.
enum class Hold { Free, Held, Spring };

/// The support of a node: movements along X, Y and Z, then turns about them.
struct SceneSupport {
    std::uint32_t node = 0;  ///< place in the list of nodes
    std::array<Hold, 6> ways{};
};

/// Stories whose top is at one level.
struct SceneLevel {
    double height = 0.0;
    std::string names;
};

/// What the model view draws, made from the records of a model, in m whatever the current units are. Members refer to
/// nodes by place, so that a node moves without its members being touched.
class ModelScene {
public:
    /// Makes the scene of a model anew; null for an empty scene.
    void Build(CDataBase* database);
    /// Follows the step that is in the change buffer: what it touched is read anew.
    void Update(CDataBase& database);

    const std::vector<SceneNode>& Nodes() const { return nodes_; }
    const std::vector<SceneLine>& Lines() const { return lines_; }
    const std::vector<SceneFace>& Faces() const { return faces_; }
    const std::vector<SceneSupport>& Supports() const { return supports_; }
    /// Levels from the bottom up.
    const std::vector<SceneLevel>& Levels() const { return levels_; }
    /// The box around all nodes.
    const Box3& Bounds() const { return bounds_; }
    /// The mean length of members between two nodes: what symbols are measured by.
    double UsualLength() const;
    bool IsEmpty() const { return nodePlaces_.Count() == 0; }
    std::size_t MemberCount() const { return linePlaces_.Count() + facePlaces_.Count(); }

    /// What draws a node or a member; null when there is none of the key.
    const SceneNode* FindNode(std::uint32_t key) const { return Find(nodes_, nodePlaces_, key); }
    const SceneLine* FindLine(std::uint32_t key) const { return Find(lines_, linePlaces_, key); }
    const SceneFace* FindFace(std::uint32_t key) const { return Find(faces_, facePlaces_, key); }

private:
    struct Touched;

    template <class Item>
    static const Item* Find(const std::vector<Item>& items, const velda::FlatIndex& places, std::uint32_t key) {
        const std::uint32_t at = places.Find(key);
        return at == velda::FlatIndex::kNone ? nullptr : &items[at];
    }
    static Touched TouchedBy(CDataBase& database);
    void ReadNode(const CDataBase& database, std::uint32_t key);
    void ReadMember(const CDataBase& database, std::uint32_t key);
    void ReadSupports(const CDataBase& database);
    void ReadLevels(const CDataBase& database);
    void CutOpenings();
    const SceneFace* HostOf(const SceneFace& opening, const std::vector<Box3>& boxes) const;
    std::vector<Vec3> PlacesOf(const SceneFace& face) const;
    void Measure();

    std::vector<SceneNode> nodes_;
    std::vector<SceneLine> lines_;
    std::vector<SceneFace> faces_;
    std::vector<SceneSupport> supports_;
    std::vector<SceneLevel> levels_;
    velda::FlatIndex nodePlaces_;
    velda::FlatIndex linePlaces_;
    velda::FlatIndex facePlaces_;
    std::vector<std::uint32_t> freeNodes_;
    std::vector<std::uint32_t> freeLines_;
    std::vector<std::uint32_t> freeFaces_;
    Box3 bounds_;
    mutable std::optional<double> usualLength_;  ///< none until it is asked for after a change
};

}  // namespace zt
