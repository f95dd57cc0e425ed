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

QString FindingText::fault(const Finding &finding, const ElementDataSource &elements)
{
    const QString &on = elements.tableSource()[size_t(finding.on)].name;
    return finding.kind == Finding::Kind::Contrast
               ? tr("%1 on %2").arg(ratio(finding.ratio), on)
               : tr("Like %1 to %2 eyes").arg(on, nameOf(finding.eyes));
}

QString FindingText::details(const Finding &finding, const ElementDataSource &elements)
{
    const QString text = fault(finding, elements);
    return finding.kind == Finding::Kind::Contrast
               ? tr("%1, needs %2").arg(text, ratio(finding.threshold))
               : text;
}
