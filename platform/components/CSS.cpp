#include "CSS.h"

QString CSS::border() { return QStringLiteral("#4a90c8"); }
QString CSS::gradientDark() { return QStringLiteral("#1c2530"); }
QString CSS::gradientMiddle() { return QStringLiteral("#2b3a4b"); }
QString CSS::gradientLight() { return QStringLiteral("#41566e"); }
QString CSS::highlight() { return QStringLiteral("#f0a030"); }
QString CSS::accentRGBA() { return QStringLiteral("rgba(74, 144, 200, 160)"); }
QString CSS::background() { return QStringLiteral("#101418"); }
QString CSS::panel() { return QStringLiteral("#1c2530"); }
QString CSS::text() { return QStringLiteral("#e8edf2"); }
QString CSS::alert() { return QStringLiteral("#e04848"); }
