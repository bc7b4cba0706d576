#include "NumericEntryStyle.h"

#include "CSS.h"

namespace {

struct Metrics
{
    const char* font;
    const char* height;
    const char* labelFont;
    const char* paddingLocked;
    const char* paddingPlain;
    const char* margin;
};

Metrics unitMetrics(const QString& size)
{
    if (size == QLatin1String("Max"))
        return {"20px", "32px", "16px", "1px 5px 0px 5px", "1px 5px 0px 5px", "0px"};
    if (size == QLatin1String("Min"))
        return {"14px", "25px", "12px", "1px 5px 0px 5px", "1px 5px 0px 5px", "0p"};
    return {"32px", "37px", "12px", "1px 5px 0px 5px", "3px 5px 0px 5px", "0p"};
}

Metrics plainMetrics(const QString& size)
{
    if (size == QLatin1String("Max"))
        return {"20px", "32px", "16px", "1px 5px 0px 5px", "1px 5px 0px 5px", ""};
    if (size == QLatin1String("Min"))
        return {"14px", "25px", "12px", "1px 5px 0px 5px", "1px 5px 0px 5px", ""};
    return {"32px", "37px", "12px", "3px 5px 0px 5px", "1px 5px 0px 5px", ""};
}

QString captionRule(const Metrics& m)
{
    return QStringLiteral("QLabel#Label { font-size: %1; padding: 4px 5px 0px 8px; margin: 0px 0px 0px 0px;"
                          " border: none; color: #fff; min-height: 12px; }")
        .arg(QLatin1String(m.labelFont));
}

QString lockImageRule(const char* image)
{
    return QStringLiteral(" background-image: url(:/images/%1); background-position: top right;"
                          " background-repeat: no-repeat;")
        .arg(QLatin1String(image));
}

} // namespace

QString NumericEntryStyle::withUnit(const QString& size, bool lockImage)
{
    const Metrics m = unitMetrics(size);
    const bool max = size == QLatin1String("Max");
    // The large form without the padlock keeps the system's selection colours.
    const QString selection = max && !lockImage
        ? QString()
        : QStringLiteral(" selection-color: #000; selection-background-color: #fff;");
    QString sheet = max ? QString() : QStringLiteral("QWidget#NumericEntry { background: transparent; }");
    sheet += QStringLiteral("QLineEdit { padding: %1; margin: %2; border: 2px solid #000; border-right-width: 0px;"
                            " border-bottom-left-radius: 10px; border-top-left-radius: 10px; font-size: %3;"
                            " color: #000; min-height: %4; max-height: %4; min-width: 20px;"
                            " background-color: #fff;%5 }")
                 .arg(QLatin1String(lockImage ? m.paddingLocked : m.paddingPlain), QLatin1String(m.margin),
                      QLatin1String(m.font), QLatin1String(m.height), selection);
    sheet += QStringLiteral("QLineEdit:disabled { background: transparent; border: 2px solid #fff; color: #fff;"
                            " border-right-width: 0px;%1 }")
                 .arg(lockImage ? lockImageRule("lock_num_un.png") : QString());
    return sheet + captionRule(m);
}

QString NumericEntryStyle::plain(const QString& size, bool lockImage)
{
    const Metrics m = plainMetrics(size);
    QString sheet = QStringLiteral("QWidget#NumericEntry { background-color: transparent; }");
    sheet += QStringLiteral("QLineEdit { padding: %1; margin: 0px; border: 2px solid #fff; border-radius: 10px;"
                            " font-size: %2; color: #000; min-height: %3; max-height: %3; background-color: #fff;"
                            " selection-color: #000; selection-background-color: #fff; }")
                 .arg(QLatin1String(lockImage ? m.paddingLocked : m.paddingPlain), QLatin1String(m.font),
                      QLatin1String(m.height));
    sheet += QStringLiteral("QLineEdit:disabled { background: transparent; border: 2px solid #fff; color: #fff;%1 }")
                 .arg(lockImage ? lockImageRule("lock_generic.png") : QString());
    return sheet + captionRule(m);
}

QString NumericEntryStyle::readOnlySuffix()
{
    return QStringLiteral("   QLineEdit:disabled {       border-color: ") + CSS::border() + QStringLiteral(";   }");
}

void NumericEntryStyle::build(bool lockImage)
{
    m_unitMax = withUnit(QStringLiteral("Max"), lockImage);
    m_unitMin = withUnit(QStringLiteral("Min"), lockImage);
    m_unitThumb = withUnit(QStringLiteral("Thumb"), lockImage);
    m_plainMax = plain(QStringLiteral("Max"), lockImage);
    m_plainMin = plain(QStringLiteral("Min"), lockImage);
    m_plainThumb = plain(QStringLiteral("Thumb"), lockImage);
}

void NumericEntryStyle::markReadOnly()
{
    for (QString* sheet : {&m_unitMax, &m_unitMin, &m_plainMax, &m_plainMin, &m_unitThumb})
        *sheet += readOnlySuffix();
}

const QString* NumericEntryStyle::sheet(const QString& size, bool withUnit) const
{
    if (size == QLatin1String("Max"))
        return withUnit ? &m_unitMax : &m_plainMax;
    if (size == QLatin1String("Min"))
        return withUnit ? &m_unitMin : &m_plainMin;
    if (size == QLatin1String("Thumb"))
        return withUnit ? &m_unitThumb : &m_plainThumb;
    return nullptr;
}

// The small field keeps what the cut leaves, however odd: an operator of the
// small screen knows it so.
QString NumericEntryStyle::thumbCut(const QString& text)
{
    QString rest = text;
    QString out;
    int cut = 0;
    while (text.length() > 4 && cut < 4 && !rest.isEmpty()) {
        rest.remove(0, 1);
        out += rest;
        if (rest != QLatin1String(".") && rest != QLatin1String("-"))
            ++cut;
    }
    return out;
}
