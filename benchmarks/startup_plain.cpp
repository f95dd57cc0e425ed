// The yardstick for the start of Tintloom: a program that shows the editor's first frame, and can
// do nothing else.
#include <QAbstractListModel>
#include <QFont>
#include <QGuiApplication>
#include <QQuickView>

#include <cstdlib>

namespace
{
// The elements that ship, by section, dressed as the editor dresses its rows.
constexpr const char *roles[] = {"section", "name", "about", "caption", "fill", "ink"};
constexpr const char *rows[][std::size(roles)] = {
    {"Balloons", "Green Balloon 1", "First color of the green balloons", "#8EEBB0FF", "#8EEBB0",
     "black"},
    {"Balloons", "Green Balloon 2", "Second color of the green balloons", "#46CF7DFF", "#46CF7D",
     "black"},
    {"Balloons", "Blue Balloon 1", "First color of the blue balloons", "#9AD0FFFF", "#9AD0FF",
     "black"},
    {"Balloons", "Blue Balloon 2", "Second color of the blue balloons", "#4FA6F2FF", "#4FA6F2",
     "black"},
    {"Balloons", "Gray Balloon 1", "First color of the gray balloons", "#F2F4F6FF", "#F2F4F6",
     "black"},
    {"Balloons", "Gray Balloon 2", "Second color of the gray balloons", "#D5DBE1FF", "#D5DBE1",
     "black"},
    {"Balloons", "Balloon Corners", "Shape of every balloon's corners", "Round", "#FFFFFF",
     "black"},
    {"Composer", "Composer Background", "Bar that holds the text field", "#E2EEE8FF", "#E2EEE8",
     "black"},
    {"Composer", "Composer Text", "Text of the message being written", "#17332DFF", "#17332D",
     "white"},
    {"Composer", "Send Button", "Button that sends the message", "#00D644FF", "#00D644", "black"},
    {"Conversation", "Chat Background", "Color behind the balloons of a conversation", "#F6FAF8FF",
     "#F6FAF8", "black"},
    {"Conversation", "Message Text", "Text inside the balloons", "#10231FFF", "#10231F", "white"},
    {"Conversation", "Message Text Size", "Size of the text inside the balloons", "16 points",
     "#FFFFFF", "black"},
    {"Conversation", "Sender Names", "Names above the balloons of a group", "", "#FFFFFF", "black"},
    {"Conversation", "Timestamps", "Date and time between the balloons", "#324B44FF", "#324B44",
     "white"},
    {"Message List", "List Background", "Plain picture behind the list; always opaque", "#FFF6E5FF",
     "#FFF6E5", "black"},
    {"Message List", "Contact Names", "Names in the list of conversations", "#0F3D33FF", "#0F3D33",
     "white"},
    {"Message List", "Message Previews", "Start of the last message under each name", "#3D4F4AFF",
     "#3D4F4A", "white"},
    {"Message List", "Separators", "Lines between the conversations", "", "#FFFFFF", "black"},
    {"Message List", "Contact Photos", "Photos beside the names in the list", "Show", "#FFFFFF",
     "black"},
    {"Navigation Bar", "Bar Background", "Bar at the top of every screen", "#0E4A3FFF", "#0E4A3F",
     "white"},
    {"Navigation Bar", "Bar Title", "Title and buttons of the top bar", "#FFFFFFFF", "#FFFFFF",
     "black"},
    {"Unread Marks", "Unread Indicator", "Mark beside a conversation with new messages",
     "#DF7100FF", "#DF7100", "black"},
    {"Unread Marks", "Unread Names", "Names of conversations with new messages", "#8A3A00FF",
     "#8A3A00", "white"},
};

class Elements : public QAbstractListModel
{
public:
    int rowCount(const QModelIndex &) const override { return int(std::size(rows)); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return QString(rows[index.row()][role]);
    }
    QHash<int, QByteArray> roleNames() const override
    {
        QHash<int, QByteArray> names;
        for (int role = 0; role < int(std::size(roles)); ++role)
            names.insert(role, roles[role]);
        return names;
    }
};
} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    QFont font; // the editor's letters
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
    Elements elements;
    QQuickView view;
    view.setInitialProperties({{"elements", QVariant::fromValue(&elements)}});
    view.setSource(QUrl("qrc:/StartupPlain/PlainEditor.qml"));
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(800, 660); // as Tintloom on the display that has no screen
    QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [] { std::_Exit(0); });
    view.show();
    return QGuiApplication::exec();
}
