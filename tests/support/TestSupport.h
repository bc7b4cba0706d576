#ifndef TESTSUPPORT_H
#define TESTSUPPORT_H

#include <QString>

class QWidget;
class QImage;

namespace TestSupport {

//! Grabs \a widget and writes it as RV_TEST_OUTPUT/<name>.png; returns the image.
QImage savePng(QWidget* widget, const QString& name);

} // namespace TestSupport

#endif // TESTSUPPORT_H
