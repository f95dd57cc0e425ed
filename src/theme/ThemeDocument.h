// The theme that is being made: the one place where what the user chose lives, and the only way to
// change it.
//
//   chooser, option sheet, row sheet --+                     +--> table (repaints those rows)
//   command line, "Bring Back" --------+--> ThemeDocument ---+--> whoever shows the theme
//   undo, redo ------------------------+      |              +--> draft
//                                             +--> a step in the history
//
// An element's address is its index in the document's order; the data source turns rows, names and
// keys into it. Every change goes through change(), which makes one step of the history and sends
// one signal, however many elements it concerns; what would change nothing makes neither. Steps
// hold the choices of before and after, so they can be undone wherever the table stands meanwhile.
//
// What is unsaved is told by comparing with the choices that were loaded or saved last: who changes
// a colour and then types the old one again has nothing to save.
//
// While a colour is being picked, the one under the finger is told to observers as a passing
// colour: they may show it, but nobody has chosen it, and dropping it leaves no trace.
//
// Main thread only. Whoever works on another thread takes a snapshot with it.
#pragma once

#include "theme/ElementDataSource.h"

#include <QObject>
#include <QUndoStack>

#include <map>
#include <set>

class ThemeDocument final : public QObject
{
    Q_OBJECT

public:
    struct Change {
        int index;
        ElementChoice choice;
    };
    using Changes = std::vector<Change>;

    explicit ThemeDocument(ElementDataSource elements);

    /// The elements with what is chosen now. A copy is a snapshot.
    const ElementDataSource &elements() const { return _elements; }
    int count() const { return int(_elements.tableSource().size()); }
    /// Indexes must be in range, here and below.
    const ElementRecord &record(int index) const;

    // One step each, and false where nothing changes.
    /// Takes the colour text as it is, digit for digit; the empty text removes the colour.
    bool setColor(int index, const QString &colorText);
    /// Chooses an option by its label. Nothing changes where the element has no such option.
    bool chooseOption(int index, const QString &label);
    bool resetToSaved(int index);
    bool resetToDefault(int index);
    /// All of these in one step, under that name; of two changes of one element the later counts.
    bool changeAll(Changes changes, const QString &name);
    /// The same but for locked elements: for changes of elements that nobody has named one by one.
    bool changeUnlocked(Changes changes, const QString &name);

    /// What was loaded or saved last.
    ElementChoice savedChoice(int index) const;
    bool hasUnsavedChanges() const { return !_savedInstead.empty(); }
    /// Every element whose choice is not the saved one, with its choice, in document order.
    Changes unsavedChanges() const;
    /// Other choices take the place of all, and count as saved; the history begins anew, since its
    /// steps lead between states that are gone. False, and nothing done, with another list of
    /// elements.
    bool startAnew(ElementDataSource elements);
    /// A snapshot has reached the disk. The history stays.
    void noteSaved(const ElementDataSource &snapshot);

    // The history, by whose names people know the steps: "Change Send Button".
    bool canUndo() const { return _history.canUndo(); }
    bool canRedo() const { return _history.canRedo(); }
    QString undoName() const { return _history.undoText(); }
    QString redoName() const { return _history.redoText(); }
    /// Both return the elements that have changed, in document order.
    std::vector<int> undo();
    std::vector<int> redo();

    /// The other elements, locked ones left out, that bear the colour text which this one bore
    /// before its last change, and that text. None while its last change has been undone, or when
    /// it had no colour before.
    struct Namesakes {
        QString colorText;
        std::vector<int> indexes;
    };
    Namesakes namesakes(int index) const;

    /// A locked element is left alone by every change of many; one by itself still changes it.
    bool isLocked(int index) const { return _locked.contains(index); }
    void setLocked(int index, bool locked);
    const std::set<int> &lockedElements() const { return _locked; }

    /// Shows a colour text for an element without choosing it, in place of an earlier passing one.
    void showPassingColor(int index, const QString &colorText);
    void dropPassingColor();
    /// The choice to show: with the passing colour where there is one.
    ElementChoice shownChoice(int index) const;

signals:
    /// These elements have another choice now; in document order, once each.
    void changed(const std::vector<int> &indexes);
    /// Another step can be undone or redone.
    void historyChanged();
    void unsavedChanged();
    /// What counts as saved is another state than before.
    void saved();
    void lockChanged(int index);
    /// The passing colour of that element has come, changed or gone.
    void passingColorChanged(int index);

private:
    class Step;

    const Step &step(int number) const;
    void trade(Changes &changes);
    void noteDifference(int index, const ElementChoice &before);

    ElementDataSource _elements;
    std::map<int, ElementChoice> _savedInstead; // the saved choice of each element that has another
    std::set<int> _locked;
    std::optional<Change> _passing; // whose value is not used
    QUndoStack _history;            // last: its steps reach for the above
};
