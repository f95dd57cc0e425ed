// The element data source: which parts of a theme can be changed, and what the user chose for each.
//
// `initialDatasource.txt` in the resource folder is a JSON array of element objects with seven keys each
// (docs/datasource.md explains them to people who edit it). At load, the values that the
// user saved last time, the working copy `Tintloom/Info.plist` in the documents folder, are laid over
// the document's own.
#pragma once

#include "platform/PropertyList.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// One themeable element. A null marker is an invalid QVariant; it is not the same as an empty string.
struct ElementRecord {
    QString key;
    QString name;
    QString description;
    QVariant color; // colour text, or null
    std::optional<QVariantMap> options; // label -> stored value; none for a colour element
    QVariant value; // the chosen option's value, or null
    std::optional<QString> section;

    bool isChoice() const { return options.has_value(); }
    /// Colour text if the record is to be shown as a colour: "color" is neither null nor empty.
    /// A restored value of another type is taken as text.
    std::optional<QString> shownColor() const;
    /// Label of the first option, in the map's order, whose value equals the record's; empty if none.
    QString shownOption() const;
};

class ElementDataSource
{
public:
    /// How the document read. Only Loaded holds elements.
    enum class Status {
        Loaded,
        Malformed, // not JSON, or no array on top: an empty table
        Unusable, // missing, unreadable, not UTF-8, or an item that is no element
    };

    /// Reads document and working copy; never throws. Logs the working-copy path and every element
    /// without a section. A working copy that is not a dictionary is taken as none. For Unusable the log names the
    /// document, and the index and missing key of the item.
    static ElementDataSource load(const QString &resources, const QString &documents);

    Status status() const { return _status; }
    /// Why the status is not Loaded, for people; else empty.
    const QString &problem() const { return _problem; }

    /// Sections in the order of the table: titles sorted without regard to case, those that compare
    /// equal by code units. Recomputed on every call.
    QStringList sortedSections() const;
    int numberOfSections() const;
    /// Rows of section s in document order. Indexes must be in range.
    int numberOfRowsInSection(int section) const;
    ElementRecord &record(int section, int row);

    /// All records in document order, those without a section too.
    const std::vector<std::shared_ptr<ElementRecord>> &tableSource() const { return _tableSource; }
    /// The fixed head of every theme: name, theme-version, description, retina.
    const PropertyDictionary &predefinedDict() const { return _predefinedDict; }

private:
    Status _status = Status::Loaded;
    QString _problem;
    PropertyDictionary _predefinedDict;
    std::vector<std::shared_ptr<ElementRecord>> _tableSource;
    // The same records by section title. Exact titles group; only the order ignores case.
    std::map<QString, std::vector<std::shared_ptr<ElementRecord>>> _newTableSource;
};
