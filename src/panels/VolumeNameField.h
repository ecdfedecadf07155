#pragma once

#include <QLineEdit>

#include <string>

namespace orvana
{

/// A volume's name, which the user may type another over while that is allowed.
///
/// A name is bytes; the field gives back the very bytes that it was given until the user edits it. While it
/// cannot be edited it looks like a label: no frame, a long name with its middle left out, no keyboard focus.
class VolumeNameField : public QLineEdit
{
    Q_OBJECT

public:
    explicit VolumeNameField(QWidget *parent = nullptr);

    void setBytes(const std::string &name);
    std::string bytes() const;

    enum class Editing { Allowed, Forbidden };
    void setEditing(Editing editing);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString elided() const;

    std::string m_bytes;
    QString m_shown; // of the bytes, as the line edit took it
};

} // namespace orvana
