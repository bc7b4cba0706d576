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
