#include "TextWidget.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

TextWidget::TextWidget(QWidget* parent, const QString& label)
    : QWidget(parent)
    , m_lineEdit(new QLineEdit(this))
    , m_styleSheetText(QStringLiteral("QLineEdit {    background-color: transparent;    border: 2px solid white;"
                                      "    border-radius: 10px;    padding-left: 10px;    font: 14px;"
                                      "    min-height: 25px;    max-height: 25px;    color: white;}"
                                      "QLabel {    background-color: transparent;    border: none;    font: 12px;"
                                      "    padding-left: 10px;    min-height: 14px;    max-height: 14px;"
                                      "    min-width: 120px;    color: white;}"))
{
    setObjectName(QStringLiteral("TextWidget"));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    m_label.setWidget(new QLabel(label, this));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label.widget());
    layout->addWidget(m_lineEdit);
    setStyleSheet(m_styleSheetText);
    retranslate();
}

void TextWidget::setLabel(const QString& text)
{
    m_label.setText(text);
    retranslate();
}

void TextWidget::setReadOnly() { m_lineEdit->setReadOnly(true); }
void TextWidget::setText(const QString& text) { m_lineEdit->setText(text); }
QString TextWidget::getText() const { return m_lineEdit->text(); }

void TextWidget::setCSS(const QString& text) { setStyleSheet(m_styleSheetText + text); }

void TextWidget::retranslate() { m_label.retranslate("TextWidget"); }
