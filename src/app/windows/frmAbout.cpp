#include "app/windows/frmAbout.h"

#include "app/windows/icons.h"
#include "base/session.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <array>

/// A system information tool, by the names under which desktops have one.
struct SystemTool {
    QString program;
    QStringList arguments;
};

static SystemTool systemtool()
{
    const std::array<SystemTool, 6> known{
        {{QStringLiteral("hardinfo2"), {}},
         {QStringLiteral("hardinfo"), {}},
         {QStringLiteral("kinfocenter"), {}},
         {QStringLiteral("gnome-control-center"), {QStringLiteral("info-overview")}},
         {QStringLiteral("mate-system-monitor"), {}},
         {QStringLiteral("xfce4-about"), {}}}};
    for (const SystemTool& tool : known) {
        const QString path = QStandardPaths::findExecutable(tool.program);
        if (!path.isEmpty())
            return {path, tool.arguments};
    }
    return {};
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent)
{
    static constexpr int logoside = 96;
    setObjectName(QStringLiteral("frmAbout"));
    useicons();
    const QString title = QString::fromUtf8(apptitle);
    setWindowTitle(QStringLiteral("À propos de %1").arg(title));

    auto* logo = new QLabel(this);
    logo->setPixmap(QIcon(QStringLiteral(":/icons/velmora.svg"))
                        .pixmap(QSize(logoside, logoside), devicePixelRatioF()));
    auto* name = new QLabel(title, this);
    name->setObjectName(QStringLiteral("title"));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setBold(true);
    name->setFont(large);
    auto* version =
        new QLabel(QStringLiteral("Version %1").arg(QString::fromStdString(appversion())), this);
    version->setObjectName(QStringLiteral("version"));

    auto* buttons = new QDialogButtonBox(this);
    auto* close = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    if (const SystemTool tool = systemtool(); !tool.program.isEmpty()) {
        auto* info =
            buttons->addButton(QStringLiteral("&Infos système..."), QDialogButtonBox::ActionRole);
        info->setObjectName(QStringLiteral("systeminfo"));
        connect(info, &QPushButton::clicked, this,
                [tool] { QProcess::startDetached(tool.program, tool.arguments); });
    }

    auto* texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(name);
    texts->addWidget(version);
    texts->addStretch();
    auto* top = new QHBoxLayout;
    top->setSpacing(20);
    top->addWidget(logo);
    top->addLayout(texts, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(16);
    column->addLayout(top);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}
