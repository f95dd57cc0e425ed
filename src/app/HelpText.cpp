#include "app/HelpText.h"

using namespace Qt::StringLiterals;

QString helpText()
{
    return uR"(Usage:
  tintloom [options] [--catalogue] [THEME]
                                        open the editor window, or the catalogue's; and there
                                        a theme that somebody else made, the path of a file
                                        or folder, to be kept or not
  tintloom list [options] [--json]      print every element in table order
  tintloom set [options] KEY=VALUE...   apply the edits to the current choices; the theme
                                        itself stays as it is
  tintloom save [options] [--set KEY=VALUE]... [--picture KEY=FILE]
                                        apply the edits to the current choices, then
                                        save the theme
  tintloom restore [options]            bring back the choices before the last save or
                                        restore; the theme itself stays as it is
  tintloom themes [options] [--json]    print the catalogue: ready-made themes and kept ones
  tintloom install [options] NAME       install one of them
  tintloom edit [options] NAME          install it and make it the current choices
  tintloom keep [options] NAME [--replace]
                                        keep the current choices as a theme of your own
  tintloom rename [options] NAME NEW    give a kept theme another name
  tintloom duplicate [options] NAME NEW keep a copy of it
  tintloom remove [options] NAME [--undo]
                                        remove a kept theme; --undo puts it back, for 30 days
  tintloom import [options] PATH|TEXT [--as NAME] [--replace]
                                        keep a theme that somebody else made: a package's
                                        folder or Info.plist, a .tintloom, .zip or .tar.gz
                                        archive, or shared text
  tintloom export [options] [THEME] PATH [--replace]
                                        write the current choices, or a theme, to pass them on:
                                        an archive by these endings, else a folder
  tintloom share [options] [THEME] [--qr FILE]
                                        print the current choices, or a theme, as a line of
                                        text that import reads
  tintloom preview [options] [THEME] [--view conversation|list|both]
                   [--eyes normal|protan|deutan|tritan|grey] --out FILE
                                        draw the phone with the current choices, or with a
                                        theme: a name of the catalogue, or a package's folder
  tintloom check [options] [THEME] [--json] [--fix]
                                        print which colours of the current choices, or of a
                                        theme, are hard to see; --fix changes them in the
                                        current choices, as little as possible
  tintloom send [options] [THEME] [USER@]HOST[:PORT] [--folder DIR] [--name NAME]
                [--accept-host FINGERPRINT] [--back]
                                        send the current choices, or a theme as above, to a
                                        phone by SSH; --back puts back the one before
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
  --as NAME           import: keep it under this name instead of its own
  --replace           keep, import: take the place of a kept theme of that name; export: of
                      what is at PATH
  --undo              remove: put back what was removed or replaced last under that name
  --qr FILE           share: the PNG file to draw the text into, as a QR code
  --set KEY=VALUE     save: VALUE is a colour of 3, 6 or 8 hexadecimal digits, nothing to
                      remove the colour, or the label of an option; may be repeated
  --view VIEW         preview: the screen to draw; default both
  --eyes EYES         preview: draw it as other eyes see it, those that lack the red, the
                      green or the blue cones, or that see greys alone; default normal
  --out FILE          preview: the PNG file to write; - is standard output
  --folder DIR        send: folder of themes on the phone; default
                      /var/mobile/Library/biteThemes
  --name NAME         send: name of the theme there; default its own
  --accept-host HASH  send: the fingerprint SHA256:... of an unknown phone, to take without
                      asking
  --back              send: exchange the theme on the phone and the one before
  --color COLOR       generate: the colour to lead, which the green balloons get; hexadecimal
                      digits, rgb(R, G, B) or a name
  --picture FILE      generate: the picture whose best colour is to lead
  --picture KEY=FILE  save: the picture to stand behind the list, whose KEY is
                      list-background-image, in place of a colour
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
has found something, 4 the phone's key is not accepted, 5 the phone lets nobody in, 69 no
display for a window.
)"_s;
}
