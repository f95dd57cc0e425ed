// Which of the editor's rows are hard to see, for the marks on them.
//
// It keeps the theme's colours in step with the document, the passing one included, and looks at
// one element at a time, when its row asks: a change of one colour costs a screenful of rows,
// however long the list is.
#pragma once

#include "advice/Findings.h"
#include "theme/ThemeDocument.h"

#include <QTimer>

class RowFindings : public QObject
{
    Q_OBJECT

public:
    /// The document must outlive it.
    explicit RowFindings(ThemeDocument &document);

    /// What is found of the element as a text or mark, in words; empty when all is well.
    QString words(int index);

signals:
    /// Any row's words may be others now. Told once for all that has changed at a time.
    void changed();

private:
    void takeColor(int index);
    void takeChanges(const std::vector<int> &indexes);
    /// Whether the element's key is one of those that are compared with others beside the grounds.
    bool isCompared(int index) const;
    const std::vector<Finding> &lookAlikes();
    std::optional<Finding> findingOf(int index);
    ThemeColors &colors();

    ThemeDocument &_document;
    std::optional<ThemeColors> _colors; // since a row asked first
    std::optional<std::vector<Finding>> _lookAlikes;
    QTimer _news{this};
};
