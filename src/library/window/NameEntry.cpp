#include "library/window/NameEntry.h"

#include "library/ThemeName.h"

std::shared_ptr<NameEntry> NameEntry::make(const QString &proposal, Replacing replacing)
{
    return std::shared_ptr<NameEntry>(new NameEntry(proposal, replacing));
}

void NameEntry::setField(UITextField &field)
{
    _field = &field;
    _field->setText(_proposal);
    _field->setDelegate(weak_from_this());
}

void NameEntry::focus()
{
    _field->becomeFirstResponder();
    QMetaObject::invokeMethod(_field->input(), "selectAll");
}

void NameEntry::accept(IfTaken ifTaken)
{
    if (_isBusy)
        return;
    const auto [name, problem] = ThemeName::fromTyped(_field->text());
    if (!problem.isEmpty())
        return tell({LibraryResult::Outcome::BadName, problem, {}});
    _isBusy = true;
    emit changed();
    emit accepted(name, ifTaken);
}

void NameEntry::acceptFreeName()
{
    _field->setText(_freeName);
    accept();
}

void NameEntry::tell(const LibraryResult &result)
{
    _isBusy = false;
    // Elsewhere it goes on from what is before it.
    _problem =
        result.isDone() ? QString() : result.sentence.left(1).toUpper() + result.sentence.mid(1);
    _freeName = result.outcome == LibraryResult::Outcome::NameTaken ? result.name : QString();
    emit changed();
}

bool NameEntry::shouldChangeCharactersInRange(UITextField &, NSRange, const QString &)
{
    if (_isBusy)
        return false;
    _problem.clear(); // of another name
    _freeName.clear();
    emit changed();
    return true;
}

bool NameEntry::textFieldShouldReturn(UITextField &)
{
    accept();
    return false;
}
