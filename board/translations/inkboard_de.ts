<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Board</name>
    <message>
        <source>not enough memory for the page</source>
        <translation>nicht genug Speicher für die Seite</translation>
    </message>
</context>
<context>
    <name>Board::Canvas</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Objects</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Finish the object</source>
        <translation>Objekt loslassen</translation>
    </message>
    <message>
        <source>Delete the object</source>
        <translation>Objekt löschen</translation>
    </message>
    <message>
        <source>Duplicate the object</source>
        <translation>Objekt verdoppeln</translation>
    </message>
    <message>
        <source>Bring the object to the front</source>
        <translation>Objekt nach vorn holen</translation>
    </message>
    <message>
        <source>Send the object to the back</source>
        <translation>Objekt nach hinten stellen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>Board::ColorRow</name>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Another colour…</source>
        <translation>Andere Farbe …</translation>
    </message>
    <message>
        <source>Another colour</source>
        <translation>Andere Farbe</translation>
    </message>
    <message>
        <source>Recent colour %1</source>
        <translation>Letzte Farbe %1</translation>
    </message>
</context>
<context>
    <name>Board::CommandGroup</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Pen</source>
        <translation>Stift</translation>
    </message>
    <message>
        <source>Board</source>
        <translation>Tafel</translation>
    </message>
    <message>
        <source>no key</source>
        <translation>keine Taste</translation>
    </message>
</context>
<context>
    <name>Board::CommandLine</name>
    <message>
        <source>Write the played page to the PNG file OUT.</source>
        <translation>Die gespielte Seite in die PNG-Datei OUT schreiben.</translation>
    </message>
    <message>
        <source>Write the page to the PNG file OUT when the window is closed.</source>
        <translation>Die Seite in die PNG-Datei OUT schreiben, wenn das Fenster geschlossen wird.</translation>
    </message>
    <message>
        <source>Play with, or start the window with, the tool NAME: %1.</source>
        <translation>Mit dem Werkzeug NAME spielen oder das Fenster beginnen: %1.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Diese Hilfe zeigen.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version zeigen.</translation>
    </message>
    <message>
        <source>--tool %1: no such tool; there are: %2</source>
        <translation>--tool %1: kein solches Werkzeug; es gibt: %2</translation>
    </message>
    <message>
        <source>not a size of the form WIDTHxHEIGHT</source>
        <translation>keine Größe der Form BREITExHÖHE</translation>
    </message>
    <message>
        <source>--size %1: %2</source>
        <translation>--size %1: %2</translation>
    </message>
    <message>
        <source>%1: the window opens one lesson at a time</source>
        <translation>%1: das Fenster öffnet nur eine Stunde</translation>
    </message>
    <message>
        <source>--size: a lesson has a size of its own</source>
        <translation>--size: eine Stunde hat ihre eigene Größe</translation>
    </message>
    <message>
        <source>--png: only with --play; the window has --export</source>
        <translation>--png: nur mit --play; das Fenster hat --export</translation>
    </message>
    <message>
        <source>--export: the file name is missing</source>
        <translation>--export: der Dateiname fehlt</translation>
    </message>
    <message>
        <source>--play: the stroke files are missing</source>
        <translation>--play: die Strichdateien fehlen</translation>
    </message>
    <message>
        <source>--export: only in the window; --play has --png</source>
        <translation>--export: nur im Fenster; --play hat --png</translation>
    </message>
    <message>
        <source>--play: --png OUT is missing</source>
        <translation>--play: --png OUT fehlt</translation>
    </message>
    <message>
        <source>Pixels of the page, %1 a side and %2 in all at most. By default it is 1280x800 in the window, where it grows with it and has the pixels of a scaled screen, and as large as the largest FILE with --play. A lesson has its own.</source>
        <translation>Pixel der Seite, höchstens %1 je Kante und %2 insgesamt. Ohne Angabe 1280x800 im Fenster, mit dem sie wächst und wo sie die Pixel eines skalierten Bildschirms hat, und so groß wie die größte FILE bei --play. Eine Stunde hat ihre eigene.</translation>
    </message>
    <message>
        <source>Play the stroke FILEs onto one page, the first lowest, or the first page of a lesson, instead of opening the window. Needs --png, but no display. With --share and --join one FILE is drawn at the pace of a hand.</source>
        <translation>Die Strichdateien FILE auf eine Seite zeichnen, die erste zuunterst, oder die erste Seite einer Stunde, statt das Fenster zu öffnen. Braucht --png, aber keinen Bildschirm. Mit --share und --join wird eine FILE im Tempo einer Hand gezeichnet.</translation>
    </message>
    <message>
        <source>Begin a lesson that others can join, without a window: until --until objects are on the first page, and everything of this board is with the others.</source>
        <translation>Ohne Fenster eine Stunde beginnen, der andere beitreten können: bis --until Objekte auf der ersten Seite sind und alles von dieser Tafel bei den anderen ist.</translation>
    </message>
    <message>
        <source>Join the lesson of LINK in the same way.</source>
        <translation>Der Stunde von LINK auf die gleiche Weise beitreten.</translation>
    </message>
    <message>
        <source>Share at the door at ADDRESS, http://HOST:PORT, instead of one of its own.</source>
        <translation>Über den Türdienst unter ADDRESS teilen, http://HOST:PORT, statt über einen eigenen.</translation>
    </message>
    <message>
        <source>Port of its own door, 4640 without it, any that is free for 0.</source>
        <translation>Port des eigenen Türdienstes, ohne Angabe 4640, ein freier bei 0.</translation>
    </message>
    <message>
        <source>Write the link into FILE once the lesson can be joined.</source>
        <translation>Den Link in die Datei FILE schreiben, sobald man der Stunde beitreten kann.</translation>
    </message>
    <message>
        <source>What the others see beside what is drawn here.</source>
        <translation>Was die anderen neben dem sehen, was hier gezeichnet wird.</translation>
    </message>
    <message>
        <source>Draw N points a second, 120 without it, all at once for 0.</source>
        <translation>N Punkte je Sekunde zeichnen, ohne Angabe 120, bei 0 alle auf einmal.</translation>
    </message>
    <message>
        <source>Objects on the first page, by whomever.</source>
        <translation>Objekte auf der ersten Seite, von wem auch immer.</translation>
    </message>
    <message>
        <source>Seconds, 120 without it, after which it ends with 1.</source>
        <translation>Sekunden, ohne Angabe 120, nach denen das Programm mit 1 endet.</translation>
    </message>
    <message>
        <source>Write a line into FILE for each object of others: its author, its number, and the milliseconds from the point in its middle to the pixels of that here.</source>
        <translation>Für jedes Objekt der anderen eine Zeile in die Datei FILE schreiben: seinen Autor, seine Nummer und die Millisekunden vom Punkt in seiner Mitte bis zu dessen Pixeln hier.</translation>
    </message>
    <message>
        <source>--%1 %2: not a number up to %3</source>
        <translation>--%1 %2: keine Zahl bis %3</translation>
    </message>
    <message>
        <source>--share and --join: only one of them</source>
        <translation>--share und --join: nur eines von beiden</translation>
    </message>
    <message>
        <source>%1: --share and --join draw one file, with --play</source>
        <translation>%1: --share und --join zeichnen eine Datei, mit --play</translation>
    </message>
    <message>
        <source>--tool %1: nothing to draw with</source>
        <translation>--tool %1: damit lässt sich nichts zeichnen</translation>
    </message>
    <message>
        <source>Keep the lesson in FOLDER until it was held to its end. A board that was killed and is started again comes back to it, and draws what is left.</source>
        <translation>Die Stunde im Ordner FOLDER aufbewahren, bis sie zu Ende gehalten ist. Eine Tafel, die beendet wurde und wieder gestartet wird, kehrt zu ihr zurück und zeichnet, was noch fehlt.</translation>
    </message>
    <message>
        <source>A lesson (.inkboard), or the link to one that somebody shares; with --play it may be drawings of recorded strokes (JSON) instead.</source>
        <translation>Eine Stunde (.inkboard) oder der Link zu einer, die jemand teilt; mit --play können es stattdessen Zeichnungen aus aufgezeichneten Strichen (JSON) sein.</translation>
    </message>
    <message>
        <source>A whiteboard for the classroom. It ends with 0, with 1 where a lesson without a window comes to no end, or with 2 after one line that says what is wrong.</source>
        <translation>Eine Tafel für den Unterricht. Sie endet mit 0, mit 1, wenn ein Unterricht ohne Fenster kein Ende findet, oder mit 2 nach einer Zeile, die den Fehler nennt.</translation>
    </message>
</context>
<context>
    <name>Board::CommandMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>Board::DashControl</name>
    <message>
        <source>Solid line</source>
        <translation>Durchgezogene Linie</translation>
    </message>
    <message>
        <source>Dashed line</source>
        <translation>Gestrichelte Linie</translation>
    </message>
    <message>
        <source>Dotted line</source>
        <translation>Gepunktete Linie</translation>
    </message>
    <message>
        <source>Dashes and dots</source>
        <translation>Striche und Punkte</translation>
    </message>
    <message>
        <source>Dashes and two dots</source>
        <translation>Striche und zwei Punkte</translation>
    </message>
    <message>
        <source>Line style</source>
        <translation>Linienart</translation>
    </message>
    <message>
        <source>Another line style</source>
        <translation>Andere Linienart</translation>
    </message>
    <message>
        <source>Line style (%1 another)</source>
        <translation>Linienart (%1 andere)</translation>
    </message>
</context>
<context>
    <name>Board::Document</name>
    <message>
        <source>%1: cannot be written: %2. Save the lesson elsewhere.</source>
        <translation>%1: nicht beschreibbar: %2. Speichern Sie die Stunde woanders.</translation>
    </message>
    <message>
        <source>%1: another program has changed it since. Save under another name.</source>
        <translation>%1: ein anderes Programm hat sie inzwischen geändert. Speichern Sie unter einem anderen Namen.</translation>
    </message>
</context>
<context>
    <name>Board::DocumentSharing</name>
    <message>
        <source>The door and this board are of different versions.</source>
        <translation>Der Türdienst und diese Tafel haben verschiedene Versionen.</translation>
    </message>
    <message>
        <source>Somebody else has begun a lesson of this name.</source>
        <translation>Jemand anders hat eine Stunde dieses Namens begonnen.</translation>
    </message>
    <message>
        <source>This lesson is open in another window of the board.</source>
        <translation>Diese Stunde ist in einem anderen Fenster der Tafel offen.</translation>
    </message>
    <message>
        <source>The door does not let this board in (%1).</source>
        <translation>Der Türdienst lässt diese Tafel nicht ein (%1).</translation>
    </message>
    <message>
        <source>Reconnecting since %1</source>
        <translation>Seit %1 wird neu verbunden</translation>
    </message>
    <message>
        <source>The others are being sent what they have not got yet …</source>
        <translation>Die anderen bekommen, was ihnen noch fehlt …</translation>
    </message>
    <message>
        <source>This lesson is not there just now. It is asked for again and again.</source>
        <translation>Diese Stunde ist gerade nicht da. Es wird immer wieder nach ihr gefragt.</translation>
    </message>
    <message>
        <source>The lesson is being joined …</source>
        <translation>Die Stunde wird geholt …</translation>
    </message>
    <message>
        <source>Shared, nobody else is here</source>
        <translation>Geteilt, sonst ist niemand da</translation>
    </message>
    <message>
        <source>Shared with %1</source>
        <translation>Geteilt mit %1</translation>
    </message>
    <message>
        <source>, 1 step not yet sent</source>
        <translation>, 1 Schritt noch nicht gesendet</translation>
    </message>
    <message>
        <source>, %1 steps not yet sent</source>
        <translation>, %1 Schritte noch nicht gesendet</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>The lesson is being made ready for others …</source>
        <translation>Die Stunde wird für andere bereitgemacht …</translation>
    </message>
    <message>
        <source>The lesson has been ended.</source>
        <translation>Die Stunde wurde beendet.</translation>
    </message>
    <message>
        <source>%1 has not answered for %2. It is tried again and again.
Are both machines in the same network? If they are, ask for a new link.</source>
        <translation>%1 antwortet seit %2 nicht. Es wird immer wieder versucht.
Sind beide Geräte im selben Netz? Wenn ja, bitte um einen neuen Link.</translation>
    </message>
</context>
<context>
    <name>Board::DoorProcess</name>
    <message>
        <source>the door cannot be started: %1</source>
        <translation>der Türdienst lässt sich nicht starten: %1</translation>
    </message>
    <message>
        <source>the door has ended</source>
        <translation>der Türdienst hat sich beendet</translation>
    </message>
    <message>
        <source>inkboard-door is not installed</source>
        <translation>inkboard-door ist nicht installiert</translation>
    </message>
    <message>
        <source>the door has ended: %1</source>
        <translation>der Türdienst hat sich beendet: %1</translation>
    </message>
</context>
<context>
    <name>Board::FileCommands</name>
    <message>
        <source>Lessons (*.inkboard)</source>
        <translation>Stunden (*.inkboard)</translation>
    </message>
    <message>
        <source>Open…</source>
        <translation>Öffnen …</translation>
    </message>
    <message>
        <source>Unsaved lessons…</source>
        <translation>Ungespeicherte Stunden …</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save as…</source>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <source>The lesson is not safe</source>
        <translation>Die Stunde ist nicht gesichert</translation>
    </message>
    <message>
        <source>The lesson has changed</source>
        <translation>Die Stunde wurde geändert</translation>
    </message>
    <message>
        <source>Open a lesson</source>
        <translation>Eine Stunde öffnen</translation>
    </message>
    <message>
        <source>The lesson could not be read to its end</source>
        <translation>Die Stunde war nicht bis zum Ende lesbar</translation>
    </message>
    <message>
        <source>The lesson is open in another window</source>
        <translation>Die Stunde ist in einem anderen Fenster offen</translation>
    </message>
    <message>
        <source>%1: it is open in another window of the board. This is a copy: save it under another name.</source>
        <translation>%1: in einem anderen Fenster der Tafel offen. Dies ist eine Kopie: speichern Sie sie unter einem anderen Namen.</translation>
    </message>
    <message>
        <source>Save the lesson</source>
        <translation>Die Stunde speichern</translation>
    </message>
    <message>
        <source>lesson.inkboard</source>
        <translation>stunde.inkboard</translation>
    </message>
    <message>
        <source>%1: it is open in another window of the board. Save under another name.</source>
        <translation>%1: in einem anderen Fenster der Tafel offen. Speichern Sie unter einem anderen Namen.</translation>
    </message>
    <message>
        <source>The lesson was not saved</source>
        <translation>Die Stunde wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>Save elsewhere…</source>
        <translation>Woanders speichern …</translation>
    </message>
    <message>
        <source>Save the lesson before the board is closed?</source>
        <translation>Soll die Stunde gespeichert werden, bevor das Programm endet?</translation>
    </message>
    <message>
        <source>Save this lesson before another one is opened?</source>
        <translation>Soll diese Stunde gespeichert werden, bevor eine andere geöffnet wird?</translation>
    </message>
    <message>
        <source>Save this lesson before the other one is joined?</source>
        <translation>Soll diese Stunde gespeichert werden, bevor der anderen beigetreten wird?</translation>
    </message>
    <message>
        <source>New lesson</source>
        <translation>Neue Stunde</translation>
    </message>
    <message>
        <source>The lesson was not opened</source>
        <translation>Die Stunde wurde nicht geöffnet</translation>
    </message>
    <message>
        <source>%1: there is no such file.</source>
        <translation>%1: diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>Save this lesson before another one is begun?</source>
        <translation>Soll diese Stunde gespeichert werden, bevor eine neue begonnen wird?</translation>
    </message>
</context>
<context>
    <name>Board::HeadlessLesson</name>
    <message>
        <source>it took longer than %1 s; %2</source>
        <translation>es dauerte länger als %1 s; %2</translation>
    </message>
    <message>
        <source>%1: no link to a lesson</source>
        <translation>%1: kein Link zu einer Stunde</translation>
    </message>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1: nicht beschreibbar: %2</translation>
    </message>
    <message>
        <source>nats-server is not installed: the lesson is in the door&apos;s memory until that ends</source>
        <translation>nats-server ist nicht installiert: die Stunde ist nur im Speicher des Türdienstes, bis er endet</translation>
    </message>
    <message>
        <source>the door does not let this board in (%1)</source>
        <translation>der Türdienst lässt diese Tafel nicht herein (%1)</translation>
    </message>
    <message>
        <source>there is no lesson yet</source>
        <translation>es gibt noch keine Stunde</translation>
    </message>
    <message>
        <source>%1 of %2 objects are there, %3 steps are not with the others</source>
        <translation>%1 von %2 Objekten sind da, %3 Schritte sind nicht bei den anderen</translation>
    </message>
</context>
<context>
    <name>Board::JoinDialog</name>
    <message>
        <source>Join</source>
        <translation>Beitreten</translation>
    </message>
    <message>
        <source>Join a lesson</source>
        <translation>Einer Stunde beitreten</translation>
    </message>
    <message>
        <source>Link of the lesson, or its address and code</source>
        <translation>Link der Stunde, oder Adresse und Code</translation>
    </message>
    <message>
        <source>My name</source>
        <translation>Mein Name</translation>
    </message>
    <message>
        <source>may stay empty</source>
        <translation>darf leer bleiben</translation>
    </message>
    <message>
        <source>My name, for the others to see</source>
        <translation>Mein Name, den die anderen sehen</translation>
    </message>
    <message>
        <source>Link, or address and code</source>
        <translation>Link, oder Adresse und Code</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>This leads to a lesson at %1.</source>
        <translation>Dies führt zu einer Stunde bei %1.</translation>
    </message>
    <message>
        <source>The board that shares the lesson shows both: in its menu, under “Share this lesson”.</source>
        <translation>Die Tafel, die die Stunde teilt, zeigt beides: im Menü unter „Diese Stunde teilen“.</translation>
    </message>
</context>
<context>
    <name>Board::KeptLesson</name>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1: nicht beschreibbar: %2</translation>
    </message>
</context>
<context>
    <name>Board::LessonList</name>
    <message>
        <source>Unsaved lessons</source>
        <translation>Ungespeicherte Stunden</translation>
    </message>
    <message>
        <source>Lesson of %1</source>
        <translation>Stunde vom %1</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>Board::LinkReader</name>
    <message>
        <source>This link leads to no lesson. Copy it once more, from the beginning to the end.</source>
        <translation>Dieser Link führt zu keiner Stunde. Bitte noch einmal kopieren, von Anfang bis Ende.</translation>
    </message>
    <message>
        <source>A link is missing, or the address before the code, such as 192.168.1.5:4640.</source>
        <translation>Es fehlt ein Link, oder die Adresse vor dem Code, zum Beispiel 192.168.1.5:4640.</translation>
    </message>
    <message>
        <source>The code has a sign that no code has: there are letters and digits only, and no U.</source>
        <translation>Ein Zeichen kommt in keinem Code vor: es gibt nur Buchstaben und Ziffern, und kein U.</translation>
    </message>
    <message>
        <source>This is the address. After it comes the code, seven groups of four.</source>
        <translation>Das ist die Adresse. Nach ihr kommt der Code, sieben Gruppen aus vier Zeichen.</translation>
    </message>
    <message>
        <source>The code goes on: %1 of its %2 signs are here.</source>
        <translation>Der Code geht weiter: %1 seiner %2 Zeichen sind da.</translation>
    </message>
    <message>
        <source>The code has %1 signs, and here are %2.</source>
        <translation>Der Code hat %1 Zeichen, und hier sind %2.</translation>
    </message>
    <message>
        <source>Something is mistyped. Compare the address first, then each group of the code.</source>
        <translation>Etwas ist vertippt. Erst die Adresse vergleichen, dann jede Gruppe des Codes.</translation>
    </message>
</context>
<context>
    <name>Board::MainWindow</name>
    <message>
        <source>Inkboard</source>
        <translation>Inkboard</translation>
    </message>
    <message>
        <source>Keys…</source>
        <translation>Tasten …</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>Drag a handle to change the object. Enter lets it go, %1 deletes it.</source>
        <translation>Ein Griff ändert das Objekt. Die Eingabetaste lässt es los, %1 löscht es.</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>Write on the screen</source>
        <translation>Auf den Bildschirm schreiben</translation>
    </message>
    <message>
        <source>My name…</source>
        <translation>Mein Name …</translation>
    </message>
    <message>
        <source>Type the text. A press beside it or %1 lets it go.</source>
        <translation>Den Text tippen. Ein Druck daneben oder %1 lässt ihn los.</translation>
    </message>
    <message>
        <source>%1 - Inkboard</source>
        <translation>%1 - Inkboard</translation>
    </message>
</context>
<context>
    <name>Board::NameDialog</name>
    <message>
        <source>Show my name beside what I draw</source>
        <translation>Meinen Namen neben dem zeigen, was ich zeichne</translation>
    </message>
    <message>
        <source>First letter</source>
        <translation>Anfangsbuchstabe</translation>
    </message>
    <message>
        <source>My name</source>
        <translation>Mein Name</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Picture…</source>
        <translation>Bild …</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>A picture as icon</source>
        <translation>Ein Bild als Symbol</translation>
    </message>
    <message>
        <source>The picture cannot be used</source>
        <translation>Das Bild ist nicht verwendbar</translation>
    </message>
</context>
<context>
    <name>Board::OpeningBar</name>
    <message>
        <source>Opening the lesson …</source>
        <translation>Die Stunde wird geöffnet …</translation>
    </message>
</context>
<context>
    <name>Board::OptionControl</name>
    <message>
        <source>Less of the tool&apos;s option</source>
        <translation>Weniger (Einstellung des Werkzeugs)</translation>
    </message>
    <message>
        <source>More of the tool&apos;s option</source>
        <translation>Mehr (Einstellung des Werkzeugs)</translation>
    </message>
    <message>
        <source>%1 (%2 less, %3 more)</source>
        <translation>%1 (%2 weniger, %3 mehr)</translation>
    </message>
    <message>
        <source>Option of the tool</source>
        <translation>Einstellung des Werkzeugs</translation>
    </message>
</context>
<context>
    <name>Board::PageCommands</name>
    <message>
        <source>Export…</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken …</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Picture…</source>
        <translation>Bild …</translation>
    </message>
    <message>
        <source>Copy the page</source>
        <translation>Seite kopieren</translation>
    </message>
    <message>
        <source>Paste a picture</source>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Blank paper</source>
        <translation>Leeres Papier</translation>
    </message>
    <message>
        <source>Ruled paper</source>
        <translation>Liniertes Papier</translation>
    </message>
    <message>
        <source>Squared paper</source>
        <translation>Kariertes Papier</translation>
    </message>
    <message>
        <source>A picture as paper…</source>
        <translation>Ein Bild als Papier …</translation>
    </message>
    <message>
        <source>A picture as paper</source>
        <translation>Ein Bild als Papier</translation>
    </message>
    <message>
        <source>Put a picture on the page</source>
        <translation>Ein Bild auf die Seite legen</translation>
    </message>
    <message>
        <source>No picture was added</source>
        <translation>Es wurde kein Bild hinzugefügt</translation>
    </message>
    <message>
        <source>Export the page</source>
        <translation>Die Seite exportieren</translation>
    </message>
    <message>
        <source>The page was not exported</source>
        <translation>Die Seite wurde nicht exportiert</translation>
    </message>
    <message>
        <source>The screen as paper</source>
        <translation>Der Bildschirm als Papier</translation>
    </message>
    <message>
        <source>No paper was taken</source>
        <translation>Kein Papier übernommen</translation>
    </message>
    <message>
        <source>This desktop gives no picture of the screen.</source>
        <translation>Diese Arbeitsfläche gibt kein Bild des Bildschirms heraus.</translation>
    </message>
    <message>
        <source>page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
    <message>
        <source>Vector drawings (*.svg)</source>
        <translation>Vektorzeichnungen (*.svg)</translation>
    </message>
    <message>
        <source>Documents (*.pdf)</source>
        <translation>Dokumente (*.pdf)</translation>
    </message>
</context>
<context>
    <name>Board::PageStrip</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Add a page</source>
        <translation>Seite hinzufügen</translation>
    </message>
    <message>
        <source>Remove the page</source>
        <translation>Seite entfernen</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
</context>
<context>
    <name>Board::Participant</name>
    <message>
        <source>%1 (me)</source>
        <translation>%1 (ich)</translation>
    </message>
    <message>
        <source>Me</source>
        <translation>Ich</translation>
    </message>
</context>
<context>
    <name>Board::PeopleBar</name>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Share this lesson</source>
        <translation>Diese Stunde teilen</translation>
    </message>
</context>
<context>
    <name>Board::PeopleButton</name>
    <message>
        <source>In this lesson: %1</source>
        <translation>In dieser Stunde: %1</translation>
    </message>
</context>
<context>
    <name>Board::PeopleList</name>
    <message>
        <source>Show where the others point</source>
        <translation>Zeigen, wohin die anderen deuten</translation>
    </message>
    <message>
        <source>In this lesson</source>
        <translation>In dieser Stunde</translation>
    </message>
    <message>
        <source>%1, page %2</source>
        <translation>%1, Seite %2</translation>
    </message>
</context>
<context>
    <name>Board::PersonName</name>
    <message>
        <source>Somebody</source>
        <translation>Jemand</translation>
    </message>
</context>
<context>
    <name>Board::PictureFile</name>
    <message>
        <source>it is too large</source>
        <translation>es ist zu groß</translation>
    </message>
    <message>
        <source>%1: cannot be shown: %2</source>
        <translation>%1: nicht darstellbar: %2</translation>
    </message>
    <message>
        <source>there is no picture to paste</source>
        <translation>es gibt kein Bild zum Einfügen</translation>
    </message>
    <message>
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>Board::Player</name>
    <message>
        <source>the page for all files: %1</source>
        <translation>die Seite für alle Dateien: %1</translation>
    </message>
    <message>
        <source>not enough memory for a page of %1x%2 pixels</source>
        <translation>nicht genug Speicher für eine Seite von %1x%2 Pixeln</translation>
    </message>
</context>
<context>
    <name>Board::QrCode</name>
    <message>
        <source>QR code of the link</source>
        <translation>QR-Code des Links</translation>
    </message>
</context>
<context>
    <name>Board::Recovery</name>
    <message>
        <source>A lesson was not closed</source>
        <translation>Eine Stunde wurde nicht beendet</translation>
    </message>
    <message>
        <source>The lesson of %1 ended without being saved. Open it again?</source>
        <translation>Die Stunde vom %1 endete, ohne gespeichert zu sein. Wieder öffnen?</translation>
    </message>
    <message>
        <source>Kept for later, it is found in the menu, under Unsaved lessons.</source>
        <translation>Für später behalten steht sie im Menü unter „Ungespeicherte Stunden“.</translation>
    </message>
    <message>
        <source>Open it</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Delete it</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Keep it for later</source>
        <translation>Für später behalten</translation>
    </message>
    <message>
        <source>Unsaved lessons</source>
        <translation>Ungespeicherte Stunden</translation>
    </message>
    <message>
        <source>There are none.</source>
        <translation>Es gibt keine.</translation>
    </message>
    <message>
        <source>The lesson could not be read to its end</source>
        <translation>Die Stunde war nicht bis zum Ende lesbar</translation>
    </message>
</context>
<context>
    <name>Board::SaveDialog</name>
    <message>
        <source>%1 is there already. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
</context>
<context>
    <name>Board::ScreenBar</name>
    <message>
        <source>Tools for the screen</source>
        <translation>Werkzeuge für den Bildschirm</translation>
    </message>
    <message>
        <source>Drag to move the bar</source>
        <translation>Ziehen verschiebt die Leiste</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Use what lies below</source>
        <translation>Bedienen, was darunter liegt</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Back to the board</source>
        <translation>Zurück zur Tafel</translation>
    </message>
</context>
<context>
    <name>Board::ScreenPage</name>
    <message>
        <source>Ink on the screen</source>
        <translation>Tinte auf dem Bildschirm</translation>
    </message>
</context>
<context>
    <name>Board::ShareDialog</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>If they cannot come this way, take another address of this machine:</source>
        <translation>Kommt so niemand herein, hilft eine andere Adresse dieses Rechners:</translation>
    </message>
    <message>
        <source>Share this lesson</source>
        <translation>Diese Stunde teilen</translation>
    </message>
    <message>
        <source>Come to this lesson</source>
        <translation>Kommt in diese Stunde</translation>
    </message>
    <message>
        <source>Address of this machine</source>
        <translation>Adresse dieses Rechners</translation>
    </message>
    <message>
        <source>Or take the link, which the picture holds, too:</source>
        <translation>Oder den Link nehmen, den auch das Bild enthält:</translation>
    </message>
    <message>
        <source>Link to this lesson</source>
        <translation>Link zu dieser Stunde</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Do not share</source>
        <translation>Nicht teilen</translation>
    </message>
    <message>
        <source>Stop sharing</source>
        <translation>Nicht mehr teilen</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Sharing is being started …</source>
        <translation>Das Teilen wird begonnen …</translation>
    </message>
    <message>
        <source>This lesson is not shared</source>
        <translation>Diese Stunde wird nicht geteilt</translation>
    </message>
    <message>
        <source>Leave the lesson</source>
        <translation>Die Stunde verlassen</translation>
    </message>
    <message>
        <source>In Inkboard, press F7, or choose “Join a lesson” in the menu ☰ under “Sharing”. Then type this, in small or capital letters:</source>
        <translation>In Inkboard F7 drücken oder im Menü ☰ unter „Teilen“ „Einer Stunde beitreten“ wählen. Dann dies eingeben, groß oder klein geschrieben:</translation>
    </message>
</context>
<context>
    <name>Board::SharingCommands</name>
    <message>
        <source>Sharing</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Share this lesson…</source>
        <translation>Diese Stunde teilen …</translation>
    </message>
    <message>
        <source>Stop sharing</source>
        <translation>Nicht mehr teilen</translation>
    </message>
    <message>
        <source>Join a lesson…</source>
        <translation>Einer Stunde beitreten …</translation>
    </message>
    <message>
        <source>Who is here</source>
        <translation>Wer da ist</translation>
    </message>
    <message>
        <source>A step of yours could not be shared, and is gone: %1</source>
        <translation>Ein Schritt von dir ließ sich nicht teilen und ist weg: %1</translation>
    </message>
    <message>
        <source>%1 is holding this just now.</source>
        <translation>%1 hält das gerade fest.</translation>
    </message>
    <message>
        <source>This machine has no network just now, so that only boards on this machine can come. Once there is one, share the lesson again to see how others come to it.</source>
        <translation>Dieser Rechner hat gerade kein Netz, so dass nur Tafeln auf diesem Rechner teilnehmen können. Sobald es eines gibt, zeigt „Diese Stunde teilen“ noch einmal, wie andere dazukommen.</translation>
    </message>
    <message>
        <source>The lesson was shared</source>
        <translation>Die Stunde war geteilt</translation>
    </message>
    <message>
        <source>This lesson was shared with others. Go on sharing it?</source>
        <translation>Diese Stunde war mit anderen geteilt. Weiter teilen?</translation>
    </message>
    <message>
        <source>Otherwise it is an ordinary lesson from now on, with all that is in it.</source>
        <translation>Sonst ist sie von nun an eine gewöhnliche Stunde, mit allem, was darin ist.</translation>
    </message>
    <message>
        <source>Go on sharing</source>
        <translation>Weiter teilen</translation>
    </message>
    <message>
        <source>Ordinary lesson</source>
        <translation>Gewöhnliche Stunde</translation>
    </message>
    <message>
        <source>nats-server is not installed: the lesson is in this machine&apos;s memory while it is shared, and otherwise in the boards that take part alone.</source>
        <translation>nats-server ist nicht installiert: Solange die Stunde geteilt wird, ist sie im Speicher dieses Rechners, sonst nur in den Tafeln, die teilnehmen.</translation>
    </message>
    <message>
        <source>The lesson is not shared</source>
        <translation>Die Stunde wird nicht geteilt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Join a lesson</source>
        <translation>Einer Stunde beitreten</translation>
    </message>
    <message>
        <source>The others keep all that is there, and can go on with it, each alone. Nobody can come any more.</source>
        <translation>Die anderen behalten alles, was da ist, und können damit weitermachen, jeder für sich. Niemand kann mehr dazukommen.</translation>
    </message>
    <message>
        <source>The others go on without you, and keep what you have drawn.</source>
        <translation>Die anderen machen ohne dich weiter und behalten, was du gezeichnet hast.</translation>
    </message>
    <message>
        <source>What is not sent yet stays on this board alone.</source>
        <translation>Was noch nicht gesendet ist, bleibt nur auf dieser Tafel.</translation>
    </message>
    <message>
        <source>Stop sharing?</source>
        <translation>Nicht mehr teilen?</translation>
    </message>
    <message>
        <source>Leave the lesson?</source>
        <translation>Die Stunde verlassen?</translation>
    </message>
    <message>
        <source>Nobody else is in this lesson.</source>
        <translation>Sonst ist niemand in dieser Stunde.</translation>
    </message>
    <message>
        <source>One other is in this lesson.</source>
        <translation>Noch jemand ist in dieser Stunde.</translation>
    </message>
    <message>
        <source>%1 others are in this lesson.</source>
        <translation>%1 andere sind in dieser Stunde.</translation>
    </message>
    <message>
        <source>This lesson is somebody else&apos;s.</source>
        <translation>Diese Stunde gehört jemand anderem.</translation>
    </message>
    <message>
        <source>Leave it</source>
        <translation>Verlassen</translation>
    </message>
    <message>
        <source>Leave the lesson</source>
        <translation>Die Stunde verlassen</translation>
    </message>
    <message>
        <source>%1 is holding this, too. What is done last counts.</source>
        <translation>%1 hält das auch fest. Was zuletzt getan wird, gilt.</translation>
    </message>
    <message>
        <source>Pointers of the others</source>
        <translation>Zeiger der anderen</translation>
    </message>
    <message>
        <source>The lesson has been ended</source>
        <translation>Die Stunde wurde beendet</translation>
    </message>
    <message>
        <source>The lesson has been ended for everybody. You keep all of it.</source>
        <translation>Die Stunde wurde für alle beendet. Alles davon bleibt hier.</translation>
    </message>
    <message>
        <source>It is an ordinary lesson from now on, with all that is in it.</source>
        <translation>Es ist von jetzt an eine gewöhnliche Stunde, mit allem, was darin ist.</translation>
    </message>
    <message>
        <source>%1 has removed the page. What you were drawing is on it, and comes back with it.</source>
        <translation>%1 hat die Seite entfernt. Was du gerade gezeichnet hast, ist darauf und kommt mit ihr zurück.</translation>
    </message>
    <message>
        <source>%1 has removed the page.</source>
        <translation>%1 hat die Seite entfernt.</translation>
    </message>
    <message>
        <source>%1 has cleared the page.</source>
        <translation>%1 hat die Seite geleert.</translation>
    </message>
    <message>
        <source>Clear the page?</source>
        <translation>Seite leeren?</translation>
    </message>
    <message>
        <source>This clears the page for everybody.</source>
        <translation>Das leert die Seite für alle.</translation>
    </message>
    <message>
        <source>Others have drawn on it, too.</source>
        <translation>Andere haben auch darauf gezeichnet.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>Board::ShortcutDialog</name>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search for a command</source>
        <translation>Einen Befehl suchen</translation>
    </message>
    <message>
        <source>Commands and their keys</source>
        <translation>Befehle und ihre Tasten</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Keys of the command</source>
        <translation>Tasten des Befehls</translation>
    </message>
    <message>
        <source>All standard</source>
        <translation>Alle Standard</translation>
    </message>
    <message>
        <source>Choose a command.</source>
        <translation>Wählen Sie einen Befehl.</translation>
    </message>
    <message>
        <source>%1 moves between the buttons and presses them.</source>
        <translation>%1 bewegt zwischen den Knöpfen und drückt sie.</translation>
    </message>
    <message>
        <source>%1 belongs to “%2”.</source>
        <translation>%1 gehört schon zu „%2“.</translation>
    </message>
    <message>
        <source>Take it from there</source>
        <translation>Dort wegnehmen</translation>
    </message>
</context>
<context>
    <name>Board::TextEditor</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Aa</source>
        <translation>Aa</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Size of the text</source>
        <translation>Größe des Textes</translation>
    </message>
</context>
<context>
    <name>Board::Tool</name>
    <message>
        <source>drag on the page to draw</source>
        <translation>auf der Seite ziehen, um zu zeichnen</translation>
    </message>
    <message>
        <source>Pens</source>
        <translation>Stifte</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pinsel</translation>
    </message>
    <message>
        <source>Flat brush</source>
        <translation>Flachpinsel</translation>
    </message>
    <message>
        <source>Nib</source>
        <translation>Feder</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Textmarker</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Colour brush</source>
        <translation>Farbpinsel</translation>
    </message>
    <message>
        <source>Crayon</source>
        <translation>Kreide</translation>
    </message>
    <message>
        <source>Water-colour pen (leaves no mark)</source>
        <translation>Aquarellstift (hinterlässt keine Spur)</translation>
    </message>
    <message>
        <source>Spray gun</source>
        <translation>Sprühdose</translation>
    </message>
    <message>
        <source>Pencil</source>
        <translation>Bleistift</translation>
    </message>
    <message>
        <source>Pictures and text</source>
        <translation>Bilder und Text</translation>
    </message>
    <message>
        <source>Erase, fill, select</source>
        <translation>Radieren, füllen, wählen</translation>
    </message>
    <message>
        <source>Pick</source>
        <translation>Greifen</translation>
    </message>
    <message>
        <source>press on an object to change it</source>
        <translation>auf ein Objekt drücken, um es zu ändern</translation>
    </message>
    <message>
        <source>Remove objects</source>
        <translation>Objekte entfernen</translation>
    </message>
    <message>
        <source>drag over the objects to remove</source>
        <translation>über die Objekte ziehen, die verschwinden sollen</translation>
    </message>
    <message>
        <source>Laser pen</source>
        <translation>Laserpointer</translation>
    </message>
    <message>
        <source>drag to point at something; the ink disappears</source>
        <translation>ziehen, um auf etwas zu zeigen; die Spur verschwindet</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Radiergummi</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Füllen</translation>
    </message>
    <message>
        <source>press on the area to fill</source>
        <translation>auf die Fläche drücken, die gefüllt werden soll</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>drag a frame around the ink to move</source>
        <translation>einen Rahmen um das ziehen, was bewegt werden soll</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Lines and shapes</source>
        <translation>Linien und Formen</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Arrow line</source>
        <translation>Pfeillinie</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Abgerundet</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation>Dreieck</translation>
    </message>
    <message>
        <source>Right triangle</source>
        <translation>Rechtwinkliges Dreieck</translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation>Raute</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Vieleck</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Stencils</source>
        <translation>Schablonen</translation>
    </message>
    <message>
        <source>Heart (frame only)</source>
        <translation>Herz (nur Rahmen)</translation>
    </message>
    <message>
        <source>Check mark</source>
        <translation>Häkchen</translation>
    </message>
    <message>
        <source>Cross mark</source>
        <translation>Kreuz</translation>
    </message>
    <message>
        <source>Arrow right</source>
        <translation>Pfeil nach rechts</translation>
    </message>
    <message>
        <source>Arrow left</source>
        <translation>Pfeil nach links</translation>
    </message>
    <message>
        <source>Arrow up</source>
        <translation>Pfeil nach oben</translation>
    </message>
    <message>
        <source>Arrow down</source>
        <translation>Pfeil nach unten</translation>
    </message>
    <message>
        <source>Four-pointed star</source>
        <translation>Stern mit vier Zacken</translation>
    </message>
    <message>
        <source>Five-pointed star</source>
        <translation>Stern mit fünf Zacken</translation>
    </message>
    <message>
        <source>Six-pointed star</source>
        <translation>Stern mit sechs Zacken</translation>
    </message>
    <message>
        <source>Pentagon</source>
        <translation>Fünfeck</translation>
    </message>
    <message>
        <source>Hexagon</source>
        <translation>Sechseck</translation>
    </message>
    <message>
        <source>Lightning</source>
        <translation>Blitz</translation>
    </message>
    <message>
        <source>Burst of twelve</source>
        <translation>Explosion mit zwölf Zacken</translation>
    </message>
    <message>
        <source>Burst of fourteen</source>
        <translation>Explosion mit vierzehn Zacken</translation>
    </message>
    <message>
        <source>Speech bubble</source>
        <translation>Sprechblase</translation>
    </message>
    <message>
        <source>Speech box</source>
        <translation>Sprechkasten</translation>
    </message>
    <message>
        <source>Thought cloud</source>
        <translation>Gedankenwolke</translation>
    </message>
    <message>
        <source>press where to write, or drag a frame</source>
        <translation>drücken, wo geschrieben wird, oder einen Rahmen ziehen</translation>
    </message>
</context>
<context>
    <name>Board::ToolRail</name>
    <message>
        <source>No such tool</source>
        <translation>Kein solches Werkzeug</translation>
    </message>
    <message>
        <source>Search for a tool</source>
        <translation>Ein Werkzeug suchen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>Board::WidthControl</name>
    <message>
        <source>Pen width</source>
        <translation>Stiftbreite</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>Thinner</source>
        <translation>Dünner</translation>
    </message>
    <message>
        <source>Thicker</source>
        <translation>Dicker</translation>
    </message>
    <message>
        <source>Pen width (%1 thinner, %2 thicker)</source>
        <translation>Stiftbreite (%1 dünner, %2 dicker)</translation>
    </message>
</context>
<context>
    <name>Board::ZoomControl</name>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom to 100 %</source>
        <translation>Auf 100 % zoomen</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>InkLesson::Author</name>
    <message>
        <source>a text has at most %1 letters</source>
        <translation>ein Text hat höchstens %1 Buchstaben</translation>
    </message>
</context>
<context>
    <name>InkLesson::Journal</name>
    <message>
        <source>%1: no journal can be kept: %2</source>
        <translation>%1: kein Protokoll möglich: %2</translation>
    </message>
</context>
<context>
    <name>InkLesson::Lesson</name>
    <message>
        <source>number: too far beyond the author&apos;s last one</source>
        <translation>number: zu weit hinter der letzten dieses Verfassers</translation>
    </message>
    <message>
        <source>size: the pages of a lesson have at most %1 pixels in all</source>
        <translation>size: die Seiten einer Stunde haben insgesamt höchstens %1 Pixel</translation>
    </message>
    <message>
        <source>it is longer than any board writes</source>
        <translation>sie ist länger, als eine Tafel je schreibt</translation>
    </message>
    <message>
        <source>another record has this number</source>
        <translation>ein anderer Eintrag hat diese Nummer</translation>
    </message>
</context>
<context>
    <name>InkLesson::LessonFile</name>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1: nicht beschreibbar: %2</translation>
    </message>
    <message>
        <source>%1: cannot be read: %2</source>
        <translation>%1: nicht lesbar: %2</translation>
    </message>
    <message>
        <source>there are fewer steps</source>
        <translation>es gibt weniger Schritte</translation>
    </message>
</context>
<context>
    <name>InkLesson::LogReader</name>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>it is longer than any board writes</source>
        <translation>sie ist länger, als eine Tafel je schreibt</translation>
    </message>
    <message>
        <source>it was cut off here</source>
        <translation>hier wurde sie abgeschnitten</translation>
    </message>
    <message>
        <source>this is not a lesson of this board</source>
        <translation>dies ist keine Stunde dieser Tafel</translation>
    </message>
    <message>
        <source>the lesson was written by a later version of this board</source>
        <translation>die Stunde stammt von einer neueren Version dieser Tafel</translation>
    </message>
    <message>
        <source>no density of a page</source>
        <translation>keine Dichte einer Seite</translation>
    </message>
    <message>
        <source>nothing that can be read</source>
        <translation>nichts, was sich lesen lässt</translation>
    </message>
    <message>
        <source>there is nothing to undo</source>
        <translation>es gibt nichts rückgängig zu machen</translation>
    </message>
    <message>
        <source>there is nothing to redo</source>
        <translation>es gibt nichts zu wiederholen</translation>
    </message>
    <message>
        <source>there is no place for this page</source>
        <translation>für diese Seite ist kein Platz</translation>
    </message>
    <message>
        <source>there is no such page</source>
        <translation>es gibt keine solche Seite</translation>
    </message>
    <message>
        <source>this cannot be done on the page</source>
        <translation>das geht auf der Seite nicht</translation>
    </message>
    <message>
        <source>there is no such object</source>
        <translation>es gibt kein solches Objekt</translation>
    </message>
    <message>
        <source>there is no such place</source>
        <translation>es gibt keine solche Stelle</translation>
    </message>
</context>
<context>
    <name>InkLesson::PageOutput</name>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1: nicht beschreibbar: %2</translation>
    </message>
</context>
<context>
    <name>InkLesson::PageSize</name>
    <message>
        <source>a side must be 1 to %1 pixels</source>
        <translation>eine Kante hat 1 bis %1 Pixel</translation>
    </message>
    <message>
        <source>a page has at most %1 pixels in all</source>
        <translation>eine Seite hat insgesamt höchstens %1 Pixel</translation>
    </message>
</context>
<context>
    <name>InkLesson::PngFile</name>
    <message>
        <source>%1: cannot be written: %2</source>
        <translation>%1: nicht beschreibbar: %2</translation>
    </message>
</context>
<context>
    <name>InkLesson::RecordReader</name>
    <message>
        <source>nothing that can be read</source>
        <translation>nichts, was sich lesen lässt</translation>
    </message>
    <message>
        <source>not a number that this can be</source>
        <translation>keine Zahl, die hier stehen kann</translation>
    </message>
    <message>
        <source>not the name of an object</source>
        <translation>kein Name eines Objekts</translation>
    </message>
    <message>
        <source>nothing that can be done</source>
        <translation>nichts, was sich tun lässt</translation>
    </message>
    <message>
        <source>no tool of this board</source>
        <translation>kein Werkzeug dieser Tafel</translation>
    </message>
    <message>
        <source>not an array</source>
        <translation>kein Array</translation>
    </message>
    <message>
        <source>nothing that can be done to an object</source>
        <translation>nichts, was sich mit einem Objekt tun lässt</translation>
    </message>
    <message>
        <source>more than one object can go through</source>
        <translation>mehr, als ein Objekt durchmachen kann</translation>
    </message>
    <message>
        <source>no paper of this board</source>
        <translation>kein Papier dieser Tafel</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>kein Bild</translation>
    </message>
    <message>
        <source>the picture is too large</source>
        <translation>das Bild ist zu groß</translation>
    </message>
    <message>
        <source>not a style of lines</source>
        <translation>keine Art von Linien</translation>
    </message>
    <message>
        <source>not a colour</source>
        <translation>keine Farbe</translation>
    </message>
    <message>
        <source>not a name</source>
        <translation>kein Name</translation>
    </message>
    <message>
        <source>not a point</source>
        <translation>kein Punkt</translation>
    </message>
    <message>
        <source>not a size</source>
        <translation>keine Größe</translation>
    </message>
</context>
<context>
    <name>InkLesson::StrokeFile</name>
    <message>
        <source>cannot be read: %1</source>
        <translation>nicht lesbar: %1</translation>
    </message>
    <message>
        <source>larger than 256 MiB</source>
        <translation>größer als 256 MiB</translation>
    </message>
</context>
<context>
    <name>InkLesson::StrokeReader</name>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>not a JSON object</source>
        <translation>kein JSON-Objekt</translation>
    </message>
    <message>
        <source>not a text</source>
        <translation>kein Text</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>not a number</source>
        <translation>keine Zahl</translation>
    </message>
    <message>
        <source>must be 1 to %1</source>
        <translation>muss 1 bis %1 sein</translation>
    </message>
    <message>
        <source>not a list</source>
        <translation>keine Liste</translation>
    </message>
    <message>
        <source>not an object</source>
        <translation>kein Objekt</translation>
    </message>
    <message>
        <source>not a colour of the form #rrggbb</source>
        <translation>keine Farbe der Form #rrggbb</translation>
    </message>
    <message>
        <source>no point</source>
        <translation>kein Punkt</translation>
    </message>
    <message>
        <source>not a pair [x, y]</source>
        <translation>kein Paar [x, y]</translation>
    </message>
    <message>
        <source>too large</source>
        <translation>zu groß</translation>
    </message>
</context>
</TS>
