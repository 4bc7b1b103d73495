#include "desktop/dialogs/boxes.h"

#include "desktop/theme.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"

#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeView>
#include <QUrl>
#include <QVBoxLayout>

namespace sm::desktop {

namespace {

/// Columns of a file dialog's list, as QFileSystemModel has them.
enum { FILE_NAME, FILE_SIZE, FILE_KIND, FILE_DATE };

constexpr const char* OF_THE_GAME = "ofTheGame";   // a sheet that shows what one side may know

constexpr int BUTTON_WIDTH = 92;
const QString PROGRAM = QStringLiteral("Stonemarch");

class Message_Dialog : public QDialog {
public:
    Message_Dialog(QWidget* parent, const QString& title, const QString& text) : QDialog(parent)
    {
        setObjectName(QStringLiteral("messageBox"));
        setWindowTitle(title);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(26, 22, 26, 18);
        column->setSpacing(10);
        if (title != PROGRAM) {
            auto* heading = new QLabel(title, this);
            heading->setFont(Type_Font(Type::STRONG, QFont::DemiBold));
            heading->setStyleSheet(QStringLiteral("color: #23527c; font-size: 14px;"));
            column->addWidget(heading);
        }
        auto* words = new QLabel(text, this);
        words->setObjectName(QStringLiteral("lblMessage"));
        words->setTextFormat(Qt::PlainText);
        words->setWordWrap(true);
        words->setStyleSheet(QStringLiteral("font-size: 14px;"));
        // As wide as its lines are, within what is read at a glance.
        QFont font = words->font();
        font.setPixelSize(static_cast<int>(Type::STRONG));
        int widest = 0;
        for (const QString& line : text.split(QLatin1Char('\n')))
            widest = std::max(widest, QFontMetrics(font).horizontalAdvance(line) + 4);
        words->setFixedWidth(std::clamp(widest, 300, 560));
        column->addWidget(words);
        column->addSpacing(8);
        buttons_ = new QHBoxLayout;
        buttons_->addStretch(1);
        column->addLayout(buttons_);
    }
    QPushButton* Add(const QString& text, int result, bool primary)
    {
        auto* button = new QPushButton(text, this);
        button->setObjectName(QStringLiteral("button") + text);
        button->setMinimumWidth(BUTTON_WIDTH);
        if (primary) {
            button->setProperty("primary", true);
            button->setDefault(true);
        } else {
            button->setAutoDefault(false);
        }
        connect(button, &QPushButton::clicked, this, [this, result] { done(result); });
        buttons_->addWidget(button);
        return button;
    }

private:
    QHBoxLayout* buttons_;
};

/// A window that stays open beside the main one, one a title.
QDialog* Sheet(QWidget* parent, const QString& title, bool& fresh)
{
    const QString name = QStringLiteral("sheet ") + title;
    auto* dialog = parent->findChild<QDialog*>(name, Qt::FindDirectChildrenOnly);
    fresh = dialog == nullptr;
    if (fresh) {
        dialog = new QDialog(parent);
        dialog->setObjectName(name);
        dialog->setWindowTitle(title);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        auto* column = new QVBoxLayout(dialog);
        column->setContentsMargins(22, 18, 22, 16);
        column->setSpacing(10);
        auto* heading = new QLabel(title, dialog);
        heading->setProperty("role", QStringLiteral("title"));
        column->addWidget(heading);
    }
    return dialog;
}

void Finish(QDialog* dialog)
{
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    auto* close = new QPushButton(QStringLiteral("Close"), dialog);
    close->setObjectName(QStringLiteral("buttonClose"));
    close->setDefault(true);
    close->setMinimumWidth(BUTTON_WIDTH);
    QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::close);
    row->addWidget(close);
    static_cast<QVBoxLayout*>(dialog->layout())->addLayout(row);
}

void Open(QDialog* dialog)
{
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

/// Air between headings, paragraphs and list items.
void Space_Out(QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        QTextBlockFormat format = block.blockFormat();
        const int level = format.headingLevel();
        format.setTopMargin(level > 1 ? 16 : 2);
        format.setBottomMargin(level > 0 ? 5 : 4);
        format.setLineHeight(118, QTextBlockFormat::ProportionalHeight);
        cursor.setBlockFormat(format);
    }
}

QLabel* Cell(const QString& text, bool soft, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setStyleSheet(soft ? QStringLiteral("color: #55626f;") : QStringLiteral("font-weight: 600;"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// Pairs in `columns` columns, read down each.
void Fill_Sheet(QDialog* dialog, const std::vector<std::pair<QString, QString>>& pairs, int columns,
                bool key_first)
{
    auto* frame = new QFrame(dialog);
    frame->setObjectName(QStringLiteral("panel"));
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(16, 12, 16, 12);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(5);
    const int rows = (static_cast<int>(pairs.size()) + columns - 1) / columns;
    for (int i = 0; i < static_cast<int>(pairs.size()); ++i) {
        const auto& [caption, value] = pairs[static_cast<std::size_t>(i)];
        const int column = i / rows * 3;
        grid->addWidget(Cell(caption, !key_first, frame), i % rows, column);
        grid->addWidget(Cell(value, key_first, frame), i % rows, column + 1);
        if (column > 0) grid->setColumnMinimumWidth(column - 1, 24);
    }
    static_cast<QVBoxLayout*>(dialog->layout())->addWidget(frame);
}

}   // namespace

void Show_Box(QWidget* parent, const QString& title, const QString& text)
{
    Message_Dialog box(parent, title, text);
    box.Add(QStringLiteral("OK"), QDialog::Accepted, true);
    box.exec();
}

bool Ask_Box(QWidget* parent, const QString& title, const QString& text)
{
    Message_Dialog box(parent, title, text);
    box.Add(QStringLiteral("Yes"), QDialog::Accepted, true);
    box.Add(QStringLiteral("No"), QDialog::Rejected, false);
    return box.exec() == QDialog::Accepted;
}

std::optional<bool> Ask_Box_Or_Cancel(QWidget* parent, const QString& title, const QString& text)
{
    constexpr int NO = QDialog::Accepted + 1;
    Message_Dialog box(parent, title, text);
    box.Add(QStringLiteral("Yes"), QDialog::Accepted, true);
    box.Add(QStringLiteral("No"), NO, false);
    box.Add(QStringLiteral("Cancel"), QDialog::Rejected, false);
    const int result = box.exec();
    if (result == QDialog::Rejected) return std::nullopt;
    return result == QDialog::Accepted;
}

int Ask_List(QWidget* parent, const QString& title, const std::vector<std::string>& lines)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("listBox"));
    dialog.setWindowTitle(title);
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(22, 18, 22, 16);
    auto* heading = new QLabel(title, &dialog);
    heading->setProperty("role", QStringLiteral("title"));
    column->addWidget(heading);
    auto* list = new QListWidget(&dialog);
    list->setObjectName(QStringLiteral("lstTroopList"));
    for (const std::string& line : lines) list->addItem(To_Screen(line));
    list->setCurrentRow(0);
    list->setMinimumSize(320, 220);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    column->addWidget(list);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    auto* ok = new QPushButton(QStringLiteral("OK"), &dialog);
    ok->setObjectName(QStringLiteral("buttonOK"));
    ok->setProperty("primary", true);
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), &dialog);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
    for (QPushButton* button : {ok, cancel}) {
        button->setMinimumWidth(BUTTON_WIDTH);
        row->addWidget(button);
    }
    column->addLayout(row);
    return dialog.exec() == QDialog::Accepted ? list->currentRow() : -1;
}

std::string Ask_File_Box(QWidget* parent, const File_Request& request)
{
    const auto folder = Home_Path("\\" + request.FOLDER);
    QFileDialog dialog(parent, To_Screen(request.TITLE), Path_To_Screen(folder.string()));
    dialog.setObjectName(QStringLiteral("fileDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
    dialog.setAcceptMode(request.SAVE ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.SAVE ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // "Scenario Files (*.sce)|*.sce|Saved Game Files (*.btl)|*.btl": every other part is the pattern alone.
    QStringList filters;
    const QStringList parts = To_Screen(request.FILTER).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (int i = 0; i + 1 < parts.size(); i += 2) filters.append(parts[i]);
    dialog.setNameFilters(filters);
    if (request.SAVE && parts.size() > 1) dialog.setDefaultSuffix(parts[1].mid(2));
    QList<QUrl> places;
    for (const char* name : {"\\Scenarios", "\\Saved Games"})
        places.append(QUrl::fromLocalFile(Path_To_Screen(Home_Path(name).string())));
    places.append(QUrl::fromLocalFile(QDir::homePath()));
    dialog.setSidebarUrls(places);
    dialog.resize(760, 460);
    if (auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView")); files != nullptr) {
        files->hideColumn(FILE_KIND);
        files->header()->setSectionResizeMode(FILE_NAME, QHeaderView::Stretch);
        files->header()->setSectionResizeMode(FILE_DATE, QHeaderView::ResizeToContents);
    }
    if (auto* splitter = dialog.findChild<QSplitter*>(); splitter != nullptr) splitter->setSizes({160, 600});
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return Path_From_Screen(dialog.selectedFiles().constFirst());
}

void Show_Sheet(QWidget* parent, const QString& title, const std::vector<std::string>& lines)
{
    bool fresh = false;
    QDialog* dialog = Sheet(parent, title, fresh);
    if (!fresh) {   // filled anew with other lines
        dialog->setObjectName(QString());
        dialog->close();
        dialog = Sheet(parent, title, fresh);
    }
    std::vector<std::pair<QString, QString>> pairs;
    for (const std::string& line : lines) {
        const QString text = To_Screen(line);
        const auto colon = text.indexOf(QLatin1String(": "));
        if (colon < 0)
            pairs.emplace_back(text, QString());
        else
            pairs.emplace_back(text.left(colon + 1), text.mid(colon + 2));
    }
    Fill_Sheet(dialog, pairs, pairs.size() > 12 ? 2 : 1, false);
    dialog->setProperty(OF_THE_GAME, true);
    Finish(dialog);
    Open(dialog);
}

void Close_Sheets(QWidget* parent)
{
    for (QDialog* dialog : parent->findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly))
        if (dialog->property(OF_THE_GAME).toBool()) dialog->close();
}

void Show_Key_Sheet(QWidget* parent, const QString& title, const std::vector<std::string>& lines)
{
    bool fresh = false;
    QDialog* dialog = Sheet(parent, title, fresh);
    if (fresh) {
        std::vector<std::pair<QString, QString>> pairs;
        for (const std::string& line : lines) {
            const QString text = To_Screen(line);
            const auto tab = text.indexOf(QLatin1Char('\t'));
            pairs.emplace_back(text.left(tab), text.mid(tab + 1));
        }
        Fill_Sheet(dialog, pairs, 2, true);
        Finish(dialog);
    }
    Open(dialog);
}

void Show_Help_Sheet(QWidget* parent, const QString& title, const std::string& file)
{
    const FILE_READ help = Read_File_Whole(Home_Path("\\" + file), std::size_t{1} << 20);
    if (!help.ERROR.empty()) {
        Show_Box(parent, PROGRAM,
                 QStringLiteral("The help file cannot be read:\n%1").arg(Path_To_Screen(help.ERROR)));
        return;
    }
    bool fresh = false;
    QDialog* dialog = Sheet(parent, title, fresh);
    if (fresh) {
        auto* text = new QTextBrowser(dialog);
        text->document()->setDocumentMargin(16);
        text->document()->setDefaultFont(Type_Font(Type::STRONG));
        text->setMarkdown(QString::fromUtf8(QByteArray::fromStdString(help.CONTENT)));
        Space_Out(*text->document());
        text->setMinimumSize(620, 500);
        static_cast<QVBoxLayout*>(dialog->layout())->addWidget(text);
        Finish(dialog);
    }
    Open(dialog);
}

}   // namespace sm::desktop
