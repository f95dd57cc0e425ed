// Asking for the name of a theme: a field with a proposal, and what to do about a name that is
// taken.
//
// Whoever asks tries to use the name that was accepted, and tells what came of it; a name that will
// not do leaves the question open, with the reason below the field.
#pragma once

#include "library/ThemeLibrary.h"
#include "platform/UITextField.h"

#include <QObject>
#include <QPointer>

#include <memory>

class NameEntry final : public QObject,
                        public UITextFieldDelegate,
                        public std::enable_shared_from_this<NameEntry>
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by pages that ask for a name")
    Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)
    Q_PROPERTY(QString freeName READ freeName NOTIFY changed FINAL)
    Q_PROPERTY(bool replaceable READ isReplaceable NOTIFY changed FINAL)
    Q_PROPERTY(bool busy READ isBusy NOTIFY changed FINAL)

public:
    using IfTaken = ThemeLibrary::IfTaken;
    /// Whether it may take the place of a theme of that name, when the person says so.
    enum class Replacing { Never, OnRequest };

    static std::shared_ptr<NameEntry> make(const QString &proposal, Replacing replacing);

    /// The field to ask in; with the proposal in it.
    void setField(UITextField &field);
    /// Gives it the keyboard, and selects the proposal.
    void focus();

    /// Why the last name would not do; empty when there is nothing to say.
    QString problem() const { return _problem; }
    /// One that is free, where it was taken; else empty.
    QString freeName() const { return _freeName; }
    bool isReplaceable() const
    {
        return !_freeName.isEmpty() && _replacing == Replacing::OnRequest;
    }
    /// From accepted() until it was told what came of it. Nothing is accepted meanwhile.
    bool isBusy() const { return _isBusy; }

    Q_INVOKABLE void accept() { accept(IfTaken::Refuse); }
    Q_INVOKABLE void replace() { accept(IfTaken::Replace); }
    Q_INVOKABLE void acceptFreeName();
    /// What came of the name.
    void tell(const LibraryResult &result);

    bool shouldChangeCharactersInRange(UITextField &field, NSRange range,
                                       const QString &replacement) override;
    bool textFieldShouldReturn(UITextField &field) override;
    void textFieldDidEndEditing(UITextField &) override {}

signals:
    void changed();
    void accepted(const QString &name, ThemeLibrary::IfTaken ifTaken);

private:
    NameEntry(const QString &proposal, Replacing replacing)
        : _proposal(proposal), _replacing(replacing)
    {
    }
    void accept(IfTaken ifTaken);

    const QString _proposal;
    const Replacing _replacing;
    QPointer<UITextField> _field;
    QString _problem;
    QString _freeName;
    bool _isBusy = false;
};
