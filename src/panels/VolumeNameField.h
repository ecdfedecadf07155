#pragma once

#include <QLineEdit>

#include <string>

namespace orvana
{

/// A field with a volume's name. The user may type another name while editing is allowed.
///
/// A name is bytes. Until the user edits it, the field returns exactly the bytes that it was given. While
/// editing is forbidden, the field looks like a label: it has no frame and no keyboard focus, and leaves out
/// the middle of a long name.
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
    QString m_shown; // the text of `m_bytes`, as the line edit took it
};

} // namespace orvana
