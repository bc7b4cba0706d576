#include "PushButtonImpl.h"

#include "CSS.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QVBoxLayout>

namespace Kelvane {
namespace gui {

PushButtonImpl::PushButtonImpl(QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_button(new QPushButton(this))
{
    m_button->setObjectName(QStringLiteral("PushButton"));
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    // The sheet sits on the frame, not on the button, so that a derived
    // button can restyle itself with a sheet of its own.
    setStyleSheet(buttonStyle());
    connect(m_button, &QPushButton::clicked, this, &PushButtonImpl::buttonClicked);
}

QString PushButtonImpl::buttonText() const { return m_buttonText; }

void PushButtonImpl::setButtonText(const QString& text)
{
    m_buttonText = text;
    retranslate();
}

void PushButtonImpl::retranslate()
{
    WidgetBaseImpl::retranslate();
    m_button->setText(QCoreApplication::translate("PushButtonImpl", m_buttonText.toUtf8().constData()));
}

void PushButtonImpl::buttonClicked() { emit clicked(); }

QPushButton* PushButtonImpl::button() const { return m_button; }

QString PushButtonImpl::buttonStyle()
{
    return QStringLiteral("QPushButton#PushButton {"
                          "    color: %1;"
                          "    background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
                          "        stop:0 %2, stop:0.5 %3, stop:1 %4);"
                          "    border: 2px solid %5;"
                          "    border-radius: 10px;"
                          "    font-size: 18px;"
                          "    min-height: 32px;"
                          "    padding: 2px 8px;"
                          "}"
                          "QPushButton#PushButton:pressed { background-color: %5; }"
                          "QPushButton#PushButton:disabled { color: %3; border-color: %3; }")
        .arg(CSS::text(), CSS::gradientLight(), CSS::gradientMiddle(), CSS::gradientDark(), CSS::border());
}

} // namespace gui
} // namespace Kelvane
