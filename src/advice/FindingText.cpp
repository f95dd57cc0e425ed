#include "advice/FindingText.h"

#include <QCoreApplication>

#include <cmath>

namespace
{
QString tr(const char *text)
{
    return QCoreApplication::translate("FindingText", text);
}

QString nameOf(Eyes eyes)
{
    return eyes == Eyes::Protan ? tr("protan") : eyes == Eyes::Deutan ? tr("deutan") : tr("tritan");
}
} // namespace

QString FindingText::ratio(double ratio)
{
    return QString::number(std::floor(ratio * 100.0) / 100.0, 'f', 2);
}

QString FindingText::title(const Finding &finding, const ElementDataSource &elements)
{
    const auto name = [&elements](int index) { return elements.tableSource()[size_t(index)].name; };
    const QString title =
        finding.kind == Finding::Kind::Contrast ? tr("%1 on %2") : tr("%1 and %2");
    return title.arg(name(finding.element), name(finding.on));
}

QString FindingText::details(const Finding &finding)
{
    if (finding.kind == Finding::Kind::LookAlike)
        return tr("Look alike to %1 eyes").arg(nameOf(finding.eyes));
    return tr("Contrast %1, needs %2").arg(ratio(finding.ratio), ratio(finding.threshold));
}
