// The element data source: which parts of a theme can be changed, and what the user chose for each.
//
// `initialDatasource.txt` in the resource folder is a JSON array of element objects with seven keys
// each, and an eighth that may be left out (docs/datasource.md explains them to people who edit
// it). At load, the values that the user saved last time, the working copy `Tintloom/Info.plist` in
// the documents folder, are laid over the document's own.
//
// A source is a value: a copy is a snapshot that nothing changes, for whoever works on another
// thread. What is chosen changes through a ThemeDocument alone.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/TableSections.h"
#include "theme/ElementGrounds.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What is chosen for an element, in the two fields of its record that a choice can change.
struct ElementChoice {
    QVariant color; // colour text, or null
    QVariant value; // the chosen option's value, or null

    /// To the byte: 1 is not 1.0 here, nor null the empty text.
    bool operator==(const ElementChoice &) const;
};

/// One themeable element. A null marker is an invalid QVariant; it is not the same as an empty
/// string.
struct ElementRecord {
    QString key;
    QString name;
    QString description;
    QVariant color;                     // colour text, or null
    std::optional<QVariantMap> options; // label -> stored value; none for a colour element
    QVariant value;                     // the chosen option's value, or null
    std::optional<QString> section;
    std::vector<ElementGround> on; // of a colour element

    bool isChoice() const { return options.has_value(); }
    ElementChoice choice() const { return {color, value}; }
    /// Colour text if the record is to be shown as a colour: "color" is neither null nor empty.
    /// A restored value of another type is taken as text.
    std::optional<QString> shownColor() const;
    /// Label of the first option, in the map's order, whose value equals the record's; empty if
    /// none.
    QString shownOption() const;
};

class ElementDataSource
{
public:
    /// How the document read. Only Loaded holds elements.
    enum class Status {
        Loaded,
        Malformed, // not JSON, or no array on top: an empty table
        Unusable,  // missing, unreadable, not UTF-8, or an item that is no element
    };

    /// Reads document and working copy; never throws. Logs the working-copy path, every element
    /// without a section and every ground that is none. A working copy that is not a dictionary is
    /// taken as none. For Unusable the log names the document, and the index and missing key of the
    /// item.
    static ElementDataSource load(const QString &resources, const QString &documents);

    /// The same with the dictionary of any theme, or what else was saved, in place of the working
    /// copy's: what the editor would show of it.
    static ElementDataSource loadWith(const QString &resources, const PropertyDictionary *saved);

    /// The same from a document's bytes and what was saved, if anything; the path is for messages.
    static ElementDataSource parse(const QByteArray &text, const QString &path,
                                   const PropertyDictionary *saved);

    /// The fixed head and no element.
    ElementDataSource();

    Status status() const { return _status; }
    /// Why the status is not Loaded, for people; else empty.
    const QString &problem() const { return _problem; }

    /// All records in document order, those without a section too. An element's index here is its
    /// address wherever one is needed.
    const std::vector<ElementRecord> &tableSource() const { return _tableSource; }
    /// The choice that the document itself makes, whatever has been saved since.
    ElementChoice defaultChoice(int index) const;

    /// Section titles in the order of the table: without regard to case, in the user's locale;
    /// those that compare equal by code units.
    QStringList sortedSections() const;
    int numberOfSections() const { return _newTableSource.count(); }
    /// Indexes must be in range, here and below.
    const QString &titleForSection(int section) const { return _newTableSource.title(section); }
    /// Rows of a section, in document order.
    int numberOfRowsInSection(int section) const
    {
        return int(_newTableSource.elements(section).size());
    }
    const ElementRecord &record(int section, int row) const;

    /// The element in a row of the table; none where there is no such row.
    std::optional<int> indexAt(NSIndexPath indexPath) const
    {
        return _newTableSource.elementAt(indexPath);
    }
    /// The row of an element; an invalid one for an element without a section.
    NSIndexPath indexPathOf(int index) const;
    /// The first element of that name.
    std::optional<int> indexOfName(const QString &name) const;
    /// Every element with that key, in document order.
    std::vector<int> indexesOfKey(const QString &key) const;
    /// The one of them that a theme shows, because a save writes it last: an option, or a colour
    /// that is not null; the first where there is no such one.
    std::optional<int> shownIndexOfKey(const QString &key) const;

    /// The fixed head of every theme: name, theme-version, description, retina.
    const PropertyDictionary &predefinedDict() const { return _predefinedDict; }
    /// Keys of the balloons' colours, two and two: a theme holds each pair as an array as well.
    const QStringList &arrayObjects() const { return _arrayObjects; }
    /// The key whose colour also fills the theme's full-screen picture.
    const QStringList &imageObjects() const { return _imageObjects; }
    /// What the working copy holds beside head, elements and balloons' arrays: somebody else's. A
    /// save leaves it out.
    const PropertyDictionary &foreignEntries() const { return _foreignEntries; }

private:
    friend class ThemeDocument; // who alone changes what is chosen

    void readDocument(const QByteArray &text, const QString &path, const PropertyDictionary *saved);
    void fail(Status status, const QString &path, const QString &reason);
    void keepForeignEntries(const PropertyDictionary &saved);
    void groupIntoSections();
    void setChoice(int index, const ElementChoice &choice);

    Status _status = Status::Loaded;
    QString _problem;
    PropertyDictionary _predefinedDict;
    PropertyDictionary _foreignEntries;
    QStringList _arrayObjects;
    QStringList _imageObjects;
    std::vector<ElementRecord> _tableSource;
    QHash<int, ElementChoice> _overlaid; // the document's own choice where a saved one lies over it
    // The elements by section title; exact titles group, only the order ignores case. Titles never
    // change after the load, so they are sorted once and looking up a row costs nothing.
    TableSections _newTableSource;
    std::vector<NSIndexPath> _indexPaths; // by element
};
