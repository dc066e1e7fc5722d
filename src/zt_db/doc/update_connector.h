#pragma once

namespace zt {

class CDBDoc;
struct T_UPDATE_HINT;

/// A listener of a document: a view, a pane, a grid. It is told from ConnectToDoc on until it is disconnected or
/// destroyed.
class CDBUpdateConnector {
public:
    CDBUpdateConnector() = default;
    virtual ~CDBUpdateConnector();
    CDBUpdateConnector(const CDBUpdateConnector&) = delete;
    CDBUpdateConnector& operator=(const CDBUpdateConnector&) = delete;

    void ConnectToDoc(CDBDoc* doc);
    void DisconnectFromDoc();
    /// The document that it listens to; null for none.
    CDBDoc* GetDocument() const { return doc_; }

    /// A change of the document. The sender is the listener that caused it, or null; it is told like all others.
    virtual void OnUpdate(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) = 0;

private:
    friend class CDBDoc;
    CDBDoc* doc_ = nullptr;
};

}  // namespace zt
