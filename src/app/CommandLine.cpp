#include "app/CommandLine.h"

#include "app/NearestNames.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMap>
#include <QRegularExpression>
#include <QStandardPaths>

#include <sys/auxv.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int usageError = 2;

const QString help = uR"(Usage:
  tintloom [options] [--catalogue]      open the editor window, or the catalogue's
  tintloom list [options] [--json]      print every element in table order
  tintloom set [options] KEY=VALUE...   apply the edits to the current choices; the theme
                                        itself stays as it is
  tintloom save [options] [--set KEY=VALUE]...
                                        apply the edits to the current choices, then
                                        save the theme
  tintloom restore [options]            bring back the choices before the last save or
                                        restore; the theme itself stays as it is
  tintloom themes [options] [--json]    print the catalogue of ready-made themes
  tintloom install [options] NAME       install one of them
  tintloom edit [options] NAME          install it and make it the current choices
  tintloom preview [options] [THEME] [--view conversation|list|both]
                   [--eyes normal|protan|deutan|tritan|grey] --out FILE
                                        draw the phone with the current choices, or with a
                                        theme: a name of the catalogue, or a package's folder
  tintloom check [options] [THEME] [--json] [--fix]
                                        print which colours of the current choices, or of a
                                        theme, are hard to see; --fix changes them in the
                                        current choices, as little as possible
  tintloom palette [options] PICTURE [--json]
                                        print the colours of a picture that can lead a
                                        theme, the best first
  tintloom generate [options] (--color COLOR | --picture FILE | --seed N)
                    [--base THEME] [--light | --dark]
                    [--harmony single|analogous|split|triadic|complementary]
                    [--strength S] [--lock KEY]... [--dry-run]
                                        give the current choices, or a theme's, the
                                        colours of a new theme that is led by that one;
                                        what is locked stays

Options:
  --package-root DIR  folder that holds themes; default biteThemes in your desktop's
                      documents folder, on the phone /var/mobile/Library/biteThemes
                      (environment: TINTLOOM_PACKAGE_ROOT)
  --documents DIR     folder of the working copy; default the application data folder
                      (environment: TINTLOOM_DOCUMENTS)
  --resources DIR     folder of initialDatasource.txt; default the installed one
                      (environment: TINTLOOM_RESOURCES)
  --scale N           pixels per point of the written images, 1 to 8; default 2
  --screen WxH        size of the phone's screen in the window, in points, 320x240 to
                      8192x8192; default 320x568, or what a wide window leaves for it
  --no-preview        open the window without the preview beside the screen
  --catalogue         open the window on the catalogue
  --json              list, themes, check, palette: print one JSON array
  --fix               check: mend what is found in the current choices, and print the rest
  --set KEY=VALUE     save: VALUE is a colour of 3, 6 or 8 hexadecimal digits, nothing to
                      remove the colour, or the label of an option; may be repeated
  --view VIEW         preview: the screen to draw; default both
  --eyes EYES         preview: draw it as other eyes see it, those that lack the red, the
                      green or the blue cones, or that see greys alone; default normal
  --out FILE          preview: the PNG file to write; - is standard output
  --color COLOR       generate: the colour to lead, which the green balloons get; hexadecimal
                      digits, rgb(R, G, B) or a name
  --picture FILE      generate: the picture whose best colour is to lead
  --seed N            generate: a number that colour, harmony and tone are drawn by
  --base THEME        generate: a theme to start from, named as above; default the current
                      choices
  --light             generate: turn a dark base into a light one
  --dark              generate: turn a light base into a dark one
  --harmony HARMONY   generate: how far the other hues are from the first; default single
  --strength S        generate: how much of it all, 0 to 1; default 1
  --lock KEY          generate: an element to leave as it is; may be repeated
  --dry-run           generate: print the choices as "list --json" would, and change nothing
  --help              print this text
  --version           print the version

Exit status: 0 done, 1 something could not be read or written, 2 wrong usage, 3 check
has found something, 69 no display for a window.
)"_s;

const QMap<QString, PreviewView> views{{u"conversation"_s, PreviewView::Conversation},
                                       {u"list"_s, PreviewView::MessageList},
                                       {u"both"_s, PreviewView::Both}};
const QMap<QString, Eyes> eyes{{u"normal"_s, Eyes::Normal},
                               {u"protan"_s, Eyes::Protan},
                               {u"deutan"_s, Eyes::Deutan},
                               {u"tritan"_s, Eyes::Tritan},
                               {u"grey"_s, Eyes::Grey}};

/// Relative to the program's file, so that an installation can be moved as a whole. The kernel
/// tells which file that is, even to a program started by a bare name where no /proc is mounted.
QString defaultResources()
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel hands the address out as a number
    const auto *file = reinterpret_cast<const char *>(getauxval(AT_EXECFN));
    const QFileInfo program(QFileInfo(QFile::decodeName(file)).canonicalFilePath());
    return QDir::cleanPath(program.absoluteDir().filePath(QStringLiteral(TINTLOOM_DATA)));
}

/// Takes the parsed arguments apart. The first thing wrong is kept, the rest then means nothing.
class Reader
{
public:
    explicit Reader(const QCommandLineParser &parser) : _parser(parser) {}

    QString folder(const QString &option, const char *variable, const QString &standard)
    {
        if (_parser.isSet(option)) {
            const QString value = _parser.value(option);
            if (value.isEmpty())
                fail(u"--%1 needs the name of a folder"_s.arg(option));
            return absolute(value);
        }
        const QString value = qEnvironmentVariable(variable);
        return absolute(value.isEmpty() ? standard : value);
    }

    CommandLine::Command command()
    {
        const QStringList words = _parser.positionalArguments();
        if (words.isEmpty())
            return CommandLine::Command::Window;
        using enum CommandLine::Command;
        static const QMap<QString, CommandLine::Command> commands{
            {u"list"_s, List},       {u"set"_s, Set},           {u"save"_s, Save},
            {u"restore"_s, Restore}, {u"themes"_s, Themes},     {u"install"_s, Install},
            {u"edit"_s, Edit},       {u"preview"_s, Preview},   {u"check"_s, Check},
            {u"palette"_s, Palette}, {u"generate"_s, Generate},
        };
        const auto command = commands.constFind(words[0]);
        if (command == commands.cend()) {
            fail(u"unknown command '%1'; there are %2"_s.arg(
                words[0], QStringList(commands.keys()).join(", "_L1)));
            return Window;
        }
        if (*command == Set) {
            if (words.size() < 2)
                fail(u"'set' needs an edit KEY=VALUE; 'tintloom list' shows the keys"_s);
            return Set;
        }
        const bool needsTheme = *command == Install || *command == Edit;
        const bool mayHaveTheme = needsTheme || *command == Preview || *command == Check;
        const qsizetype expected = mayHaveTheme || *command == Palette ? 2 : 1;
        if (words.size() > expected)
            fail(u"unexpected argument '%1'"_s.arg(words[expected]));
        else if (words.size() < expected && needsTheme)
            fail(u"'%1' needs the name of a theme; 'tintloom themes' shows them"_s.arg(words[0]));
        else if (words.size() < expected && *command == Palette)
            fail(u"'palette' needs a picture"_s);
        return *command;
    }

    /// What `set` is to do.
    QStringList edits() const { return _parser.positionalArguments().sliced(1); }
    /// What `install`, `edit`, `preview`, `check` and `palette` are to work on.
    QString subject() const { return _parser.positionalArguments().value(1); }

    void onlyWith(bool allowed, const QString &option, const QString &command)
    {
        if (_parser.isSet(option) && !allowed)
            fail(u"--%1 belongs to %2"_s.arg(option, command));
    }

    template <typename Value>
    Value oneOf(const QString &option, const QMap<QString, Value> &values, Value standard)
    {
        if (!_parser.isSet(option))
            return standard;
        const QString text = _parser.value(option);
        if (!values.contains(text)) {
            const QStringList near = nearestNames(text, values.keys());
            fail(u"unknown %1 '%2'; %3 %4"_s.arg(
                option, text, near.isEmpty() ? u"there are"_s : u"near it:"_s,
                (near.isEmpty() ? values.keys() : near).join(", "_L1)));
        }
        return values.value(text, standard);
    }

    QString outFile()
    {
        const QString file = _parser.value(u"out"_s);
        if (file.isEmpty())
            fail(u"'preview' needs --out FILE"_s);
        return file == "-"_L1 ? file : absolute(file);
    }

    double scale(double standard)
    {
        if (!_parser.isSet(u"scale"_s))
            return standard;
        bool isNumber = false;
        const QString text = _parser.value(u"scale"_s);
        const double scale = QLocale::c().toDouble(text, &isNumber);
        if (!isNumber || !(scale >= 1.0 && scale <= 8.0))
            fail(u"--scale '%1' is not a number from 1 to 8"_s.arg(text));
        return scale;
    }

    std::optional<QSizeF> screen()
    {
        if (!_parser.isSet(u"screen"_s))
            return std::nullopt;
        static const QRegularExpression pattern(u"\\A([0-9]{3,4})x([0-9]{3,4})\\z"_s);
        const QString text = _parser.value(u"screen"_s);
        const QRegularExpressionMatch match = pattern.match(text);
        const int width = match.captured(1).toInt();
        const int height = match.captured(2).toInt();
        if (width < 320 || height < 240 || width > 8192 || height > 8192)
            fail(u"--screen '%1' is not a size from 320x240 to 8192x8192"_s.arg(text));
        return QSizeF(width, height);
    }

    void fail(const QString &problem)
    {
        if (_problem.isEmpty())
            _problem = problem;
    }

    const QString &problem() const { return _problem; }

private:
    static QString absolute(const QString &path)
    {
        return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    }

    const QCommandLineParser &_parser;
    QString _problem;
};

CommandLine::Outcome refusal(const QString &problem)
{
    return {{}, u"tintloom: %1\nTry 'tintloom --help'.\n"_s.arg(problem), usageError};
}
} // namespace

CommandLine::Outcome CommandLine::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    for (const auto &name : {u"help"_s, u"version"_s, u"json"_s, u"catalogue"_s, u"no-preview"_s,
                             u"fix"_s, u"light"_s, u"dark"_s, u"dry-run"_s})
        parser.addOption(QCommandLineOption(name));
    for (const auto &name :
         {u"package-root"_s, u"documents"_s, u"resources"_s, u"scale"_s, u"screen"_s, u"set"_s,
          u"view"_s, u"eyes"_s, u"out"_s, u"color"_s, u"picture"_s, u"seed"_s, u"base"_s,
          u"harmony"_s, u"strength"_s, u"lock"_s})
        parser.addOption(QCommandLineOption(name, {}, u"value"_s));
    if (!parser.parse(arguments))
        return refusal(parser.errorText());
    if (parser.isSet(u"help"_s))
        return {{}, help, 0};
    if (parser.isSet(u"version"_s))
        return {{}, u"Tintloom " TINTLOOM_VERSION "\n"_s, 0};

    Reader reader(parser);
    Options options;
    options.command = reader.command();
    reader.onlyWith(options.command == Command::List || options.command == Command::Themes ||
                        options.command == Command::Check || options.command == Command::Palette,
                    u"json"_s, u"'list', 'themes', 'check' and 'palette'"_s);
    reader.onlyWith(options.command == Command::Check, u"fix"_s, u"'check'"_s);
    for (const auto &name : {u"catalogue"_s, u"no-preview"_s})
        reader.onlyWith(options.command == Command::Window, name, u"the window"_s);
    reader.onlyWith(options.command == Command::Save, u"set"_s, u"'save'"_s);
    for (const auto &name : {u"view"_s, u"eyes"_s, u"out"_s})
        reader.onlyWith(options.command == Command::Preview, name, u"'preview'"_s);
    for (const auto &name : {u"color"_s, u"picture"_s, u"seed"_s, u"base"_s, u"light"_s, u"dark"_s,
                             u"harmony"_s, u"strength"_s, u"lock"_s, u"dry-run"_s})
        reader.onlyWith(options.command == Command::Generate, name, u"'generate'"_s);
    options.packageRoot =
        reader.folder(u"package-root"_s, "TINTLOOM_PACKAGE_ROOT", defaultPackageRoot());
    options.documents =
        reader.folder(u"documents"_s, "TINTLOOM_DOCUMENTS",
                      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    options.resources = reader.folder(u"resources"_s, "TINTLOOM_RESOURCES", defaultResources());
    options.scale = reader.scale(options.scale);
    options.screen = reader.screen();
    if (options.command == Command::Palette)
        options.picture = reader.subject();
    else
        options.theme =
            options.command == Command::Generate ? parser.value(u"base"_s) : reader.subject();
    options.catalogue = parser.isSet(u"catalogue"_s);
    options.preview = !parser.isSet(u"no-preview"_s);
    options.json = parser.isSet(u"json"_s);
    options.fix = parser.isSet(u"fix"_s);
    if (options.fix && !options.theme.isEmpty())
        reader.fail(u"--fix mends the current choices, not '%1'; 'tintloom edit' makes a theme "
                    "the current choices"_s.arg(options.theme));
    options.edits = options.command == Command::Set ? reader.edits() : parser.values(u"set"_s);
    if (options.command == Command::Preview) {
        options.view = reader.oneOf(u"view"_s, views, options.view);
        options.eyes = reader.oneOf(u"eyes"_s, eyes, options.eyes);
        options.out = reader.outFile();
    }
    if (options.command == Command::Generate)
        options.generate = GenerateOptions::read(
            parser, [&reader](const QString &problem) { reader.fail(problem); });
    for (const QString &edit : std::as_const(options.edits)) {
        if (!edit.contains(u'='))
            reader.fail(u"'%1' is not KEY=VALUE"_s.arg(edit));
    }
    if (!reader.problem().isEmpty())
        return refusal(reader.problem());
    return {options, {}, 0};
}

QString CommandLine::defaultPackageRoot(const QString &onPhone)
{
    const QFileInfo phone(onPhone);
    if (phone.dir().exists())
        return onPhone;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + u'/' +
           phone.fileName();
}
