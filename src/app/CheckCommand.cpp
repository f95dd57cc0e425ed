#include "app/CheckCommand.h"

#include "advice/FindingText.h"
#include "advice/FixAll.h"
#include "app/ExitStatus.h"
#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "app/ThemeSubject.h"
#include "app/WriteChoices.h"
#include "theme/ColorText.h"
#include "theme/ElementLocks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{
QString nameOf(Eyes eyes)
{
    return eyes == Eyes::Protan ? u"protan"_s : eyes == Eyes::Deutan ? u"deutan"_s : u"tritan"_s;
}

QString textOf(const std::optional<QRgb> &color)
{
    return color ? hexStringForRgb(*color) : QString();
}

/// Findings as they are printed; of those that a repair has left, why.
class Report
{
public:
    explicit Report(const ElementDataSource &elements) : _elements(elements), _colors(elements) {}

    void add(const Finding &finding, std::optional<FixedTheme::Reason> left = {})
    {
        const ReadableColors remedies = remediesFor(finding, _colors);
        addJson(finding, remedies, left);
        addText(finding, remedies, left);
    }

    int status() const { return _json.isEmpty() ? 0 : ExitStatus::found; }
    QByteArray json() const { return QJsonDocument(_json).toJson(); }
    const QString &text() const { return _text; }

private:
    const QString &keyOf(int index) const { return _elements.tableSource()[size_t(index)].key; }

    void addJson(const Finding &finding, const ReadableColors &remedies,
                 std::optional<FixedTheme::Reason> left)
    {
        const auto orNull = [](const QString &text) {
            return text.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
        };
        const bool isContrast = finding.kind == Finding::Kind::Contrast;
        QJsonObject object{
            {"element"_L1, keyOf(finding.element)},
            {"on"_L1, keyOf(finding.on)},
            {"kind"_L1, isContrast ? u"contrast"_s : u"look-alike"_s},
            {"eyes"_L1, orNull(isContrast ? QString() : nameOf(finding.eyes))},
            {"ratio"_L1, FindingText::ratio(finding.ratio).toDouble()},
            {"threshold"_L1, finding.threshold},
            {"lighter"_L1, orNull(textOf(remedies.lighter))},
            {"darker"_L1, orNull(textOf(remedies.darker))},
        };
        if (left)
            object.insert("left"_L1,
                          *left == FixedTheme::Reason::Locked ? u"locked"_s : u"no-color"_s);
        _json.append(object);
    }

    void addText(const Finding &finding, const ReadableColors &remedies,
                 std::optional<FixedTheme::Reason> left)
    {
        const bool isContrast = finding.kind == Finding::Kind::Contrast;
        _text +=
            isContrast
                ? u"%1 on %2: contrast %3, needs %4"_s.arg(
                      keyOf(finding.element), keyOf(finding.on), FindingText::ratio(finding.ratio),
                      FindingText::ratio(finding.threshold))
                : u"%1 looks like %2 to %3 eyes: distance %4, needs %5"_s.arg(
                      keyOf(finding.element), keyOf(finding.on), nameOf(finding.eyes),
                      FindingText::ratio(finding.ratio), FindingText::ratio(finding.threshold));
        if (remedies.lighter)
            _text += u"; lighter "_s + textOf(remedies.lighter);
        if (remedies.darker)
            _text += u"; darker "_s + textOf(remedies.darker);
        if (left)
            _text += *left == FixedTheme::Reason::Locked ? u"; left, because it is locked"_s
                                                         : u"; left, because no color does"_s;
        _text += u'\n';
    }

    const ElementDataSource &_elements;
    const ThemeColors _colors;
    QJsonArray _json;
    QString _text;
};

int printed(const Report &report, const CommandLine::Options &options, const QString &before = {})
{
    const int status = print(options.json ? report.json() : (before + report.text()).toUtf8());
    return status == 0 ? report.status() : status;
}

int fixChoices(const CommandLine::Options &options)
{
    // What another Tintloom saves between load and save would be undone by this save.
    const auto keeper = openKeeper(options);
    if (!keeper)
        return ExitStatus::failed;
    ThemeDocument document(ElementDataSource::load(options.resources, options.documents));
    if (document.elements().status() != ElementDataSource::Status::Loaded) {
        complain(u"nothing to mend: %1"_s.arg(document.elements().problem()));
        return ExitStatus::failed;
    }
    for (const int index : ElementLocks::load(locationsOf(options), document.elements()))
        document.setLocked(index, true);
    const FixedTheme fixed = fixAll(document.elements(), document.lockedElements());
    const QString changes = describe(fixed.changes, document.elements());
    if (document.changeUnlocked(fixed.changes, u"Fix All"_s) &&
        !writeChoices(options, *keeper, document.elements()))
        return ExitStatus::failed;
    Report report(document.elements());
    for (const auto &[finding, reason] : fixed.left)
        report.add(finding, reason);
    return printed(report, options, changes);
}
} // namespace

int runCheck(const CommandLine::Options &options)
{
    if (options.fix)
        return fixChoices(options);
    const auto [elements, status] = themeSubject(options);
    if (!elements)
        return status;
    Report report(*elements);
    for (const Finding &finding : findings(*elements))
        report.add(finding);
    return printed(report, options);
}
