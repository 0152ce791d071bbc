#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <memory>
#include <vector>

class MenuDocument;
class QTemporaryDir;

// Undo and redo by checkpoints. After each change the history compares the document with its copy of
// the last checkpoint and keeps only the entries that differ, as they were and as they are, as one
// step. Strings are shared with the document, so a step costs what it changed, not the whole menu.
class UndoHistory
{
public:
    static constexpr std::size_t DefaultMemoryLimit = std::size_t { 64 } << 20;

    // Files that a change moves out of the way are kept below keepingRoot until their step leaves the
    // history.
    UndoHistory(MenuDocument& document, QString keepingRoot, std::size_t memoryLimit = DefaultMemoryLimit);
    ~UndoHistory();
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    // Forgets every step; the document as it is now is where undoing stops.
    void reset();

    // Makes one step, named for the user ("Insert Page"), of what changed since the last checkpoint.
    // A step with the same fold key as the step before it, when that is not null, joins it, so that
    // typing in one box is undone at once. Returns whether a step was made or joined.
    bool record(const QString& name, const void* foldKey = nullptr);

    // Takes what changed since the last checkpoint as it is, without a step: pointing the document at
    // the file it was saved to is not something to undo.
    void absorb();

    // A new empty folder to move files into for the change being made.
    QString newKeepingFolder();
    // The change being made moved these files from folder into keptIn: undoing it moves them back,
    // redoing it moves them out again. They are deleted when the step leaves the history.
    void keepFiles(const QString& folder, const QString& keptIn, const QStringList& names);

    bool canUndo() const;
    bool canRedo() const;
    QString undoName() const;
    QString redoName() const;
    void undo();
    void redo();

    int stepCount() const;
    // What the steps hold beyond the strings they share with the document, roughly.
    std::size_t memoryUse() const { return m_memoryUse; }

private:
    struct Baseline;
    struct Step;
    struct KeptFiles;

    void push(Step&& step);
    void dropRedoSteps();
    void dropOldestSteps();
    void forget(Step& step);

    MenuDocument& m_document;
    std::unique_ptr<Baseline> m_baseline;
    std::vector<Step> m_steps;
    std::size_t m_done = 0; // steps 0 .. m_done - 1 are in effect
    std::size_t m_memoryUse = 0;
    std::size_t m_memoryLimit;
    QString m_keepingRoot;
    std::unique_ptr<QTemporaryDir> m_keeping;
    int m_keepingFolders = 0;
    std::unique_ptr<KeptFiles> m_pendingFiles;
};
