// What the chooser says about the contrast of the colour under the finger, and the colours that it
// offers instead.
//
// It advises: nothing is picked unless the person asks for it, and any colour can be.
#pragma once

#include "advice/ElementContrast.h"
#include "platform/DisplayPace.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class ContrastBadge : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the chooser")
    Q_PROPERTY(bool shown READ isShown NOTIFY changed FINAL)
    Q_PROPERTY(int level READ level NOTIFY changed FINAL)
    Q_PROPERTY(QString ratio READ ratio NOTIFY changed FINAL)
    Q_PROPERTY(QString verdict READ verdict NOTIFY changed FINAL)
    Q_PROPERTY(QString spoken READ spoken NOTIFY changed FINAL)
    Q_PROPERTY(QString remedy READ remedy NOTIFY changed FINAL)

public:
    explicit ContrastBadge(QObject *parent = nullptr);

    /// Speaks of that element from now on. The elements must outlive the badge.
    void follow(const ElementDataSource &elements, int index);
    /// The colour text that is picked now.
    void setColorText(const QString &colorText);

    /// False for an element of which there is nothing to say.
    bool isShown() const { return _reading.has_value(); }
    /// Of ElementContrast::Level.
    int level() const { return _reading ? int(_reading->level) : 0; }
    /// The worst ratio, and what it is good for.
    QString ratio() const;
    QString verdict() const;
    /// Both in words, with the other element; and what asking for another colour does.
    QString spoken() const;
    QString remedy() const;

    /// The colour text to pick when the person asks for a better one: the nearest that reads well,
    /// and after that the nearest in the other direction. Nothing where none does.
    std::optional<QString> nextColorText();

signals:
    /// At a display's pace, however fast the finger is: to lay out and draw the text costs a third
    /// of what the wheel does. What is said then is of now.
    void changed();

private:
    std::optional<QString> otherOffer() const;

    const ElementDataSource *_elements = nullptr;
    std::optional<ElementContrast> _contrast;
    std::optional<ElementContrast::Reading> _reading;
    QString _colorText;
    ReadableColors _offer;    // that one of was taken last
    bool _isHopeless = false; // no colour of this hue reads well here
    DisplayPace _telling{[this] { emit changed(); }, this};
};
