#include "TestSupport.h"

#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace TestSupport {

QImage savePng(QWidget* widget, const QString& name)
{
    const QImage image = widget->grab().toImage();
    QDir().mkpath(QStringLiteral(RV_TEST_OUTPUT));
    image.save(QStringLiteral(RV_TEST_OUTPUT "/") + name + QStringLiteral(".png"));
    return image;
}

} // namespace TestSupport
