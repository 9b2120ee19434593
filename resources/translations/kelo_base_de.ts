<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ActionManager</name>
    <message>
        <source>Unknown Category</source>
        <translation>Unbekannte Kategorie</translation>
    </message>
</context>
<context>
    <name>ActionSectorMenu</name>
    <message>
        <source>More</source>
        <translation>Weitere</translation>
    </message>
</context>
<context>
    <name>AmbiguityNotice</name>
    <message>
        <source>%1 does nothing, since “%2” and “%3” both have it.</source>
        <translation>%1 bewirkt nichts, denn „%2“ und „%3“ haben es beide.</translation>
    </message>
    <message>
        <source>%1 does nothing, since “%2” and another function both have it.</source>
        <translation>%1 bewirkt nichts, denn „%2“ und eine weitere Funktion haben es beide.</translation>
    </message>
    <message>
        <source>Set Keys...</source>
        <translation>Tasten festlegen...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows the sheets of DXF plans with what is drawn around them.</source>
        <translation>Zeigt die Blätter von DXF-Plänen mit dem, was um sie herum gezeichnet ist.</translation>
    </message>
    <message>
        <source>DXF plans to open; a sample when there is none.</source>
        <translation>Zu öffnende DXF-Pläne; ohne Angabe ein Beispiel.</translation>
    </message>
    <message>
        <source>Exchange commands with the partner in this folder.</source>
        <translation>Befehle mit dem Partnerprogramm in diesem Ordner austauschen.</translation>
    </message>
    <message>
        <source>Write a picture of the window as PNG, and leave.</source>
        <translation>Ein Bild des Fensters als PNG schreiben und enden.</translation>
    </message>
    <message>
        <source>Size of the picture in pixels, as in 1280x800.</source>
        <translation>Größe des Bildes in Pixeln, wie in 1280x800.</translation>
    </message>
    <message>
        <source>Show this place from this height, in metres; the angle, in degrees, is that between east and the right of the screen.</source>
        <translation>Diesen Ort aus dieser Höhe in Metern zeigen; der Winkel in Grad ist der zwischen Osten und der rechten Seite des Bildschirms.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no size: wanted is WIDTHxHEIGHT, each from 1 to 16384</source>
        <translation>„%1“ ist keine Größe: verlangt ist BREITExHÖHE, beide von 1 bis 16384</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no view: wanted is X,Y,HEIGHT or X,Y,HEIGHT,ANGLE with a height above 0</source>
        <translation>„%1“ ist keine Ansicht: verlangt ist X,Y,HÖHE oder X,Y,HÖHE,WINKEL mit einer Höhe über 0</translation>
    </message>
    <message>
        <source>Colours of the picture: light or dark.</source>
        <translation>Farben des Bildes: light (hell) oder dark (dunkel).</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no theme: wanted is light or dark</source>
        <translation>„%1“ ist kein Thema: verlangt ist light oder dark</translation>
    </message>
    <message>
        <source>The picture needs the name of a file</source>
        <translation>Das Bild braucht den Namen einer Datei</translation>
    </message>
</context>
<context>
    <name>ConfigFile</name>
    <message>
        <source>the file cannot be written</source>
        <translation>die Datei lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>the file cannot be read, or others have it open</source>
        <translation>die Datei ist nicht lesbar, oder ein anderes Programm hält sie offen</translation>
    </message>
    <message>
        <source>Settings were not saved in %1: %2</source>
        <translation>Die Einstellungen wurden nicht in %1 gespeichert: %2</translation>
    </message>
</context>
<context>
    <name>CoreFacadeI</name>
    <message>
        <source>&apos;%1&apos; could not be started: %2.</source>
        <translation>„%1“ konnte nicht gestartet werden: %2.</translation>
    </message>
    <message>
        <source>What needs it is left out: %1.</source>
        <translation>Was darauf aufbaut, entfällt: %1.</translation>
    </message>
    <message>
        <source>it needs &apos;%1&apos;, which does not run</source>
        <translation>„%1“ wird dafür gebraucht und läuft nicht</translation>
    </message>
    <message>
        <source>it did not say why</source>
        <translation>ein Grund wurde nicht genannt</translation>
    </message>
</context>
<context>
    <name>DatabaseDocuments</name>
    <message>
        <source>The value &quot;%1&quot; is of a type that cannot be kept.</source>
        <translation>Der Wert „%1“ ist von einer Art, die sich nicht aufbewahren lässt.</translation>
    </message>
</context>
<context>
    <name>DatabaseSession</name>
    <message>
        <source>The tables of &quot;%1&quot; in the database %2 are those of a later version. They were left alone.</source>
        <translation>Die Tabellen von „%1“ in der Datenbank %2 sind die einer späteren Version. Sie wurden nicht angerührt.</translation>
    </message>
    <message>
        <source>The tables of &quot;%1&quot; in the database %2 cannot be brought to their present form.</source>
        <translation>Die Tabellen von „%1“ in der Datenbank %2 lassen sich nicht auf ihren heutigen Stand bringen.</translation>
    </message>
    <message>
        <source>The database %1 refused: %2</source>
        <translation>Die Datenbank %1 hat abgelehnt: %2</translation>
    </message>
    <message>
        <source>The database %1 cannot be opened: %2</source>
        <translation>Die Datenbank %1 lässt sich nicht öffnen: %2</translation>
    </message>
    <message>
        <source>the file is damaged, and another program is setting it aside</source>
        <translation>die Datei ist beschädigt, und ein anderes Programm legt sie gerade beiseite</translation>
    </message>
    <message>
        <source>the file is damaged and cannot be renamed</source>
        <translation>die Datei ist beschädigt und lässt sich nicht umbenennen</translation>
    </message>
    <message>
        <source>The database %1 was damaged. It is kept as %2, and a new one was begun.</source>
        <translation>Die Datenbank %1 war beschädigt. Sie ist als %2 aufbewahrt, und eine neue wurde begonnen.</translation>
    </message>
    <message>
        <source>The database %1 is closed.</source>
        <translation>Die Datenbank %1 ist geschlossen.</translation>
    </message>
    <message>
        <source>The database %1 was closed while it was being changed; nothing was changed.</source>
        <translation>Die Datenbank %1 wurde während einer Änderung geschlossen; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>The database %1 was closed while it was being read.</source>
        <translation>Die Datenbank %1 wurde während des Lesens geschlossen.</translation>
    </message>
    <message>
        <source>The database %1 is in use by others at the moment.</source>
        <translation>Die Datenbank %1 wird im Augenblick von anderen benutzt.</translation>
    </message>
    <message>
        <source>The connection to the database %1 was lost.</source>
        <translation>Die Verbindung zur Datenbank %1 ging verloren.</translation>
    </message>
    <message>
        <source>The database %1 is damaged.</source>
        <translation>Die Datenbank %1 ist beschädigt.</translation>
    </message>
    <message>
        <source>There is no room left for the database %1.</source>
        <translation>Für die Datenbank %1 ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>The database %1 cannot be written.</source>
        <translation>Die Datenbank %1 lässt sich nicht schreiben.</translation>
    </message>
</context>
<context>
    <name>DatabaseTable</name>
    <message>
        <source>%1 cannot hold the value.</source>
        <translation>%1 kann den Wert nicht aufnehmen.</translation>
    </message>
    <message>
        <source>%1 holds a value of another type.</source>
        <translation>%1 enthält einen Wert anderer Art.</translation>
    </message>
    <message>
        <source>The description of the table %1 is wrong.</source>
        <translation>Die Beschreibung der Tabelle %1 ist falsch.</translation>
    </message>
</context>
<context>
    <name>DxfReader</name>
    <message>
        <source>The file ends in the middle of a pair of lines</source>
        <translation>Die Datei endet mitten in einem Zeilenpaar</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no group code</source>
        <translation>„%1“ ist kein Gruppencode</translation>
    </message>
    <message>
        <source>%1 is no group code</source>
        <translation>%1 ist kein Gruppencode</translation>
    </message>
    <message>
        <source>The file ends in the middle of a value</source>
        <translation>Die Datei endet mitten in einem Wert</translation>
    </message>
    <message>
        <source>Block &apos;%1&apos; is defined twice; the first definition holds</source>
        <translation>Der Block „%1“ ist doppelt definiert; es gilt die erste Definition</translation>
    </message>
    <message>
        <source>The sheet number &apos;%1&apos; belongs to no insert</source>
        <translation>Die Blattnummer „%1“ gehört zu keiner Blockeinfügung</translation>
    </message>
    <message>
        <source>Cannot be read: %1</source>
        <translation>Lässt sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>Reading was cancelled</source>
        <translation>Das Lesen wurde abgebrochen</translation>
    </message>
    <message>
        <source>Was changed while it was being read</source>
        <translation>Wurde während des Lesens geändert</translation>
    </message>
    <message>
        <source>There is no section in it, so it is no DXF drawing</source>
        <translation>Enthält keinen Abschnitt und ist daher keine DXF-Zeichnung</translation>
    </message>
    <message>
        <source>The end mark (EOF) is missing; the file looks cut short</source>
        <translation>Die Endmarke (EOF) fehlt; die Datei ist vermutlich abgeschnitten</translation>
    </message>
    <message>
        <source>at byte %1: %2</source>
        <translation>bei Byte %1: %2</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; does not exist</source>
        <translation>Die Datei „%1“ gibt es nicht</translation>
    </message>
    <message>
        <source>Is a folder, not a plan</source>
        <translation>Ist ein Ordner, kein Plan</translation>
    </message>
    <message>
        <source>Cannot be opened: %1</source>
        <translation>Lässt sich nicht öffnen: %1</translation>
    </message>
    <message>
        <source>This is a DWG drawing (%1); save it as DXF first</source>
        <translation>Das ist eine DWG-Zeichnung (%1); bitte zuerst als DXF speichern</translation>
    </message>
    <message>
        <source>This is a DXB drawing; save it as DXF first</source>
        <translation>Das ist eine DXB-Zeichnung; bitte zuerst als DXF speichern</translation>
    </message>
    <message>
        <source>This is a PDF document; export the drawing as DXF instead</source>
        <translation>Das ist ein PDF-Dokument; bitte die Zeichnung als DXF exportieren</translation>
    </message>
    <message>
        <source>This is a ZIP archive; unpack it first</source>
        <translation>Das ist ein ZIP-Archiv; bitte zuerst entpacken</translation>
    </message>
    <message>
        <source>This is a gzip archive; unpack it first</source>
        <translation>Das ist ein gzip-Archiv; bitte zuerst entpacken</translation>
    </message>
    <message>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>This is text in UTF-16; save it as DXF in UTF-8 or ANSI</source>
        <translation>Das ist Text in UTF-16; bitte als DXF in UTF-8 oder ANSI speichern</translation>
    </message>
    <message>
        <source>This is text, but no DXF drawing</source>
        <translation>Das ist Text, aber keine DXF-Zeichnung</translation>
    </message>
    <message>
        <source>This is no DXF drawing</source>
        <translation>Das ist keine DXF-Zeichnung</translation>
    </message>
    <message>
        <source>The lines end with CR alone; save the plan with LF or CR LF</source>
        <translation>Die Zeilen enden nur mit CR; bitte den Plan mit LF oder CR LF speichern</translation>
    </message>
    <message>
        <source>A block stands outside of the blocks section</source>
        <translation>Ein Block steht außerhalb des Abschnitts für Blöcke</translation>
    </message>
    <message>
        <source>&apos;%1&apos; stands outside of any section</source>
        <translation>„%1“ steht außerhalb aller Abschnitte</translation>
    </message>
    <message>
        <source>The plan is too large: it has more than four billion vertices or bytes of text</source>
        <translation>Der Plan ist zu groß: mehr als vier Milliarden Eckpunkte oder Byte an Text</translation>
    </message>
    <message>
        <source>A polyline cannot have %1 vertices</source>
        <translation>Eine Polylinie kann nicht %1 Eckpunkte haben</translation>
    </message>
    <message>
        <source>A vertex without Y</source>
        <translation>Ein Eckpunkt ohne Y</translation>
    </message>
    <message>
        <source>A vertex without X</source>
        <translation>Ein Eckpunkt ohne X</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no coordinate</source>
        <translation>„%1“ ist keine Koordinate</translation>
    </message>
    <message>
        <source>The text has more than %1 bytes</source>
        <translation>Der Text hat mehr als %1 Byte</translation>
    </message>
    <message>
        <source>The text holds a NUL or a line feed</source>
        <translation>Der Text enthält ein NUL-Zeichen oder einen Zeilenvorschub</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no whole number</source>
        <translation>„%1“ ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>A block without a name is left out</source>
        <translation>Ein Block ohne Namen wird ausgelassen</translation>
    </message>
    <message>
        <source>A polyline announces 1 vertex and has %1</source>
        <translation>Eine Polylinie kündigt 1 Eckpunkt an und hat %1</translation>
    </message>
    <message numerus="yes">
        <source>A polyline announces %1 vertices and has %2</source>
        <translation>
            <numerusform>Eine Polylinie kündigt %1 Eckpunkt an und hat %2</numerusform>
            <numerusform>Eine Polylinie kündigt %1 Eckpunkte an und hat %2</numerusform>
        </translation>
    </message>
    <message>
        <source>An insert without a block name is left out</source>
        <translation>Eine Blockeinfügung ohne Blocknamen wird ausgelassen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no encoding</source>
        <translation>„%1“ ist keine Zeichenkodierung</translation>
    </message>
</context>
<context>
    <name>DxfTools</name>
    <message>
        <source>Read File</source>
        <translation>Datei lesen</translation>
    </message>
    <message>
        <source>Analyze File</source>
        <translation>Datei auswerten</translation>
    </message>
    <message>
        <source>Analyze file failed!</source>
        <translation>Die Auswertung der Datei ist fehlgeschlagen!</translation>
    </message>
    <message>
        <source>Export DXF as Kelo-GK2</source>
        <translation>DXF als Kelo-GK2 exportieren</translation>
    </message>
    <message>
        <source>DFX GK2 Export</source>
        <translation>DFX-GK2-Export</translation>
    </message>
    <message>
        <source>Export completed - Inserts written: %1</source>
        <translation>Export abgeschlossen – geschriebene Blockeinfügungen: %1</translation>
    </message>
    <message>
        <source>Rectangle detector detected less or more than one rectangle (Block:%1): none found</source>
        <translation>Die Rechteckerkennung ergab weniger oder mehr als ein Rechteck (Block: %1): keines gefunden</translation>
    </message>
    <message numerus="yes">
        <source>Rectangle detector detected less or more than one rectangle (Block:%1): %n found</source>
        <translation>
            <numerusform>Die Rechteckerkennung ergab weniger oder mehr als ein Rechteck (Block: %1): %n gefunden</numerusform>
            <numerusform>Die Rechteckerkennung ergab weniger oder mehr als ein Rechteck (Block: %1): %n gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; is not exported: its block &apos;%2&apos; has no polyline</source>
        <translation>Blatt „%1“ wird nicht exportiert: Sein Block „%2“ hat keine Polylinie</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; is not exported: there is no block &apos;%2&apos;</source>
        <translation>Blatt „%1“ wird nicht exportiert: Den Block „%2“ gibt es nicht</translation>
    </message>
    <message>
        <source>More than one sheet has the number &apos;%1&apos;</source>
        <translation>Mehr als ein Blatt hat die Blattnummer „%1“</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; is not exported: its insert lies inside a block</source>
        <translation>Blatt „%1“ wird nicht exportiert: Seine Blockeinfügung liegt innerhalb eines Blocks</translation>
    </message>
    <message>
        <source>1 sheet</source>
        <translation>1 Blatt</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets</source>
        <translation>
            <numerusform>%n Blatt</numerusform>
            <numerusform>%n Blätter</numerusform>
        </translation>
    </message>
    <message>
        <source>as they lie in the plan</source>
        <translation>wie sie im Plan liegen</translation>
    </message>
    <message>
        <source>to scale, side by side</source>
        <translation>maßstäblich, nebeneinander</translation>
    </message>
    <message>
        <source>sheet</source>
        <translation>Blatt</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>oben links</translation>
    </message>
    <message>
        <source>top right</source>
        <translation>oben rechts</translation>
    </message>
    <message>
        <source>bottom right</source>
        <translation>unten rechts</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>unten links</translation>
    </message>
    <message>
        <source>without labels: %1</source>
        <translation>ohne Eckbezeichnung: %1</translation>
    </message>
    <message>
        <source>without number: %1</source>
        <translation>ohne Blattnummer: %1</translation>
    </message>
    <message>
        <source>1 unit</source>
        <translation>1 Einheit</translation>
    </message>
    <message>
        <source>%1 units</source>
        <translation>%1 Einheiten</translation>
    </message>
    <message>
        <source>%1, at byte %2</source>
        <translation>%1, bei Byte %2</translation>
    </message>
    <message>
        <source>1 more warning of this kind</source>
        <translation>1 weitere Warnung dieser Art</translation>
    </message>
    <message numerus="yes">
        <source>%n more warnings of this kind</source>
        <translation>
            <numerusform>%n weitere Warnung dieser Art</numerusform>
            <numerusform>%n weitere Warnungen dieser Art</numerusform>
        </translation>
    </message>
    <message>
        <source>Correct &amp;Vertex Positions</source>
        <translation>Lage der &amp;Eckpunkte berichtigen</translation>
    </message>
    <message>
        <source>Only &amp;include blocks WITH</source>
        <translation>&amp;Nur Blöcke MIT</translation>
    </message>
    <message>
        <source>&amp;Do not include blocks WITH</source>
        <translation>&amp;Keine Blöcke MIT</translation>
    </message>
    <message>
        <source>Without sheet number</source>
        <translation>Ohne Blattnummer</translation>
    </message>
    <message>
        <source>Picture of the sheets</source>
        <translation>Bild der Blätter</translation>
    </message>
    <message>
        <source>An insert of block &apos;%1&apos; has no sheet number and is not exported: %2</source>
        <translation>Eine Blockeinfügung des Blocks „%1“ hat keine Blattnummer und wird nicht exportiert: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n inserts of block &apos;%1&apos; have no sheet number and are not exported: %2</source>
        <translation>
            <numerusform>%n Blockeinfügung des Blocks „%1“ hat keine Blattnummer und wird nicht exportiert: %2</numerusform>
            <numerusform>%n Blockeinfügungen des Blocks „%1“ haben keine Blattnummer und werden nicht exportiert: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>looked for the attribute BL_NR or Bl_Nr</source>
        <translation>gesucht ist das Attribut BL_NR oder Bl_Nr</translation>
    </message>
    <message>
        <source>looked for the attribute %1</source>
        <translation>gesucht ist das Attribut %1</translation>
    </message>
    <message>
        <source>%1, there are none</source>
        <translation>%1, es gibt keine Attribute</translation>
    </message>
    <message>
        <source>%1, found %2</source>
        <translation>%1, gefunden %2</translation>
    </message>
    <message>
        <source>Appl&amp;y insert position</source>
        <translation>Einfüge&amp;position anwenden</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets have the same corners as others, because they share blocks; &quot;Apply insert position&quot; (--placed) puts each where its insert stands</source>
        <translation>
            <numerusform>%n Blatt hat dieselben Ecken wie ein anderes, weil sie einen Block gemeinsam haben; „Einfügeposition anwenden“ (--placed) setzt jedes dorthin, wo seine Einfügung steht</numerusform>
            <numerusform>%n Blätter haben dieselben Ecken wie andere, weil sie Blöcke gemeinsam haben; „Einfügeposition anwenden“ (--placed) setzt jedes dorthin, wo seine Einfügung steht</numerusform>
        </translation>
    </message>
    <message>
        <source>A sheet is moved, turned or scaled by its insert, which does not count; &quot;Apply insert position&quot; (--placed) lets it count</source>
        <translation>Ein Blatt wird von seiner Einfügung verschoben, gedreht oder skaliert, was nicht zählt; mit „Einfügeposition anwenden“ (--placed) zählt es</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets are moved, turned or scaled by their inserts, which does not count; &quot;Apply insert position&quot; (--placed) lets it count</source>
        <translation>
            <numerusform>%n Blatt wird von seiner Einfügung verschoben, gedreht oder skaliert, was nicht zählt; mit „Einfügeposition anwenden“ (--placed) zählt es</numerusform>
            <numerusform>%n Blätter werden von ihren Einfügungen verschoben, gedreht oder skaliert, was nicht zählt; mit „Einfügeposition anwenden“ (--placed) zählt es</numerusform>
        </translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; stays where its block is drawn: its insert is tilted out of the plane</source>
        <translation>Blatt „%1“ bleibt, wo sein Block gezeichnet ist: Seine Einfügung ist aus der Ebene gekippt</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; stays where its block is drawn: the position of its insert is no usable number</source>
        <translation>Blatt „%1“ bleibt, wo sein Block gezeichnet ist: Die Position seiner Einfügung ist keine brauchbare Zahl</translation>
    </message>
    <message>
        <source>as their blocks are drawn, insert positions not applied</source>
        <translation>wie ihre Blöcke gezeichnet sind, ohne Einfügepositionen</translation>
    </message>
    <message>
        <source>not marked: %1</source>
        <translation>nicht markiert: %1</translation>
    </message>
    <message>
        <source>not included: %1</source>
        <translation>nicht einbezogen: %1</translation>
    </message>
    <message>
        <source>Arrow keys move the picture, plus and minus zoom, Home shows all of it, Space marks the selected sheets or takes their marks away.</source>
        <translation>Pfeiltasten verschieben das Bild, Plus und Minus vergrößern und verkleinern es, Pos1 zeigt alles, die Leertaste markiert die ausgewählten Blätter oder nimmt ihnen die Markierung.</translation>
    </message>
    <message>
        <source>The wheel zooms, dragging moves the picture. A click selects a sheet, with Ctrl or Shift further ones, and on the number marks it. Dragging with Shift selects all within a rectangle. A double click shows a sheet closely, or everything.</source>
        <translation>Das Mausrad vergrößert und verkleinert, Ziehen verschiebt das Bild. Ein Klick wählt ein Blatt aus, mit Strg oder Umschalt weitere, und auf der Nummer markiert er es. Ziehen mit Umschalt wählt alles in einem Rechteck aus. Ein Doppelklick zeigt ein Blatt von Nahem oder alles.</translation>
    </message>
    <message>
        <source>%1 - not marked</source>
        <translation>%1 – nicht markiert</translation>
    </message>
    <message>
        <source>%1 - not included</source>
        <translation>%1 – nicht einbezogen</translation>
    </message>
    <message>
        <source>new: %1</source>
        <translation>neu: %1</translation>
    </message>
    <message>
        <source>moved: %1</source>
        <translation>verschoben: %1</translation>
    </message>
    <message>
        <source>renamed: %1</source>
        <translation>umbenannt: %1</translation>
    </message>
    <message>
        <source>gone: %1</source>
        <translation>entfallen: %1</translation>
    </message>
    <message>
        <source>The rows and columns of its inserts make too many sheets to place them</source>
        <translation>Zeilen und Spalten seiner Einfügungen ergeben zu viele Blätter, um sie zu platzieren</translation>
    </message>
</context>
<context>
    <name>DxfToolsDialog</name>
    <message>
        <source>DXF Workbench</source>
        <translation>DXF-Werkbank</translation>
    </message>
    <message>
        <source>%1 - DXF Workbench</source>
        <translation>%1 – DXF-Werkbank</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>&amp;Zuletzt gelesen</translation>
    </message>
    <message>
        <source>DXF plans (*.dxf *.DXF);;All files (*)</source>
        <translation>DXF-Pläne (*.dxf *.DXF);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>No plan has been read yet</source>
        <translation>Es wurde noch kein Plan gelesen</translation>
    </message>
    <message>
        <source>Re&amp;move from List</source>
        <translation>Aus der &amp;Liste entfernen</translation>
    </message>
    <message>
        <source>Open a DXF plan, or drop one here</source>
        <translation>Einen DXF-Plan öffnen oder hierher ziehen</translation>
    </message>
    <message>
        <source>%1: 1 insert read</source>
        <translation>%1: 1 Blockeinfügung gelesen</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln inserts read</source>
        <translation>
            <numerusform>%1: %Ln Blockeinfügung gelesen</numerusform>
            <numerusform>%1: %Ln Blockeinfügungen gelesen</numerusform>
        </translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
    <message>
        <source>Analyzing %1</source>
        <translation>%1 wird ausgewertet</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Reading %1 was cancelled</source>
        <translation>Das Lesen von %1 wurde abgebrochen</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>%1 - %2 is still shown</source>
        <translation>%1 – %2 wird weiterhin gezeigt</translation>
    </message>
    <message>
        <source>&amp;Tag:</source>
        <translation>&amp;Attribut:</translation>
    </message>
    <message>
        <source>Va&amp;lue:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Ta&amp;g:</source>
        <translation>A&amp;ttribut:</translation>
    </message>
    <message>
        <source>Tag that blocks must have</source>
        <translation>Attributname, den Blöcke haben müssen</translation>
    </message>
    <message>
        <source>Value that blocks must have under the tag</source>
        <translation>Wert, den Blöcke unter dem Attributnamen haben müssen</translation>
    </message>
    <message>
        <source>Tag that blocks must not have</source>
        <translation>Attributname, den Blöcke nicht haben dürfen</translation>
    </message>
    <message>
        <source>&amp;Selected sheets:</source>
        <translation>Aus&amp;gewählte Blätter:</translation>
    </message>
    <message>
        <source>Number of selected sheets</source>
        <translation>Anzahl der ausgewählten Blätter</translation>
    </message>
    <message>
        <source>To be exported: %1</source>
        <translation>Zu exportieren: %1</translation>
    </message>
    <message>
        <source>Mark &amp;All</source>
        <translation>Alle &amp;markieren</translation>
    </message>
    <message>
        <source>Mark &amp;None</source>
        <translation>Keine mark&amp;ieren</translation>
    </message>
    <message>
        <source>&amp;Picture:</source>
        <translation>&amp;Bild:</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alles zeigen</translation>
    </message>
    <message>
        <source>&amp;Findings:</source>
        <translation>&amp;Hinweise:</translation>
    </message>
    <message>
        <source>No findings</source>
        <translation>Keine Hinweise</translation>
    </message>
    <message>
        <source>&amp;Export as GK2...</source>
        <translation>Als GK2 e&amp;xportieren …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>1 sheet written to %1</source>
        <translation>1 Blatt nach %1 geschrieben</translation>
    </message>
    <message numerus="yes">
        <source>%Ln sheets written to %1</source>
        <translation>
            <numerusform>%Ln Blatt nach %1 geschrieben</numerusform>
            <numerusform>%Ln Blätter nach %1 geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 was not written: %2</source>
        <translation>%1 wurde nicht geschrieben: %2</translation>
    </message>
    <message>
        <source>%1 - the older file is unchanged</source>
        <translation>%1 – die ältere Datei ist unverändert</translation>
    </message>
    <message>
        <source>%1 is the plan itself and is not overwritten</source>
        <translation>%1 ist der Plan selbst und wird nicht überschrieben</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is write-protected</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Opens a DXF plan (%1)</source>
        <translation>Öffnet einen DXF-Plan (%1)</translation>
    </message>
    <message>
        <source>Only one plan can be shown at a time: drop one file</source>
        <translation>Es kann nur ein Plan auf einmal gezeigt werden: bitte eine einzelne Datei ablegen</translation>
    </message>
    <message>
        <source>The Down key offers what the plan has.</source>
        <translation>Die Taste „Nach unten“ bietet an, was der Plan enthält.</translation>
    </message>
    <message>
        <source>Mar&amp;k Selected</source>
        <translation>A&amp;uswahl markieren</translation>
    </message>
    <message>
        <source>Marks the sheets that are selected; all others stay as they are. The space bar marks them or takes their marks away.</source>
        <translation>Markiert die ausgewählten Blätter; alle anderen bleiben, wie sie sind. Die Leertaste markiert sie oder nimmt ihnen die Markierung.</translation>
    </message>
    <message>
        <source>Save Picture...</source>
        <translation>Bild speichern …</translation>
    </message>
    <message>
        <source>What mouse and keys do in the picture</source>
        <translation>Was Maus und Tasten im Bild bewirken</translation>
    </message>
    <message>
        <source>SVG drawing (*.svg);;PNG image (*.png)</source>
        <translation>SVG-Zeichnung (*.svg);;PNG-Bild (*.png)</translation>
    </message>
    <message>
        <source>Picture saved as %1</source>
        <translation>Bild gespeichert als %1</translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>1 Warnung</translation>
    </message>
    <message numerus="yes">
        <source>%Ln warnings</source>
        <translation>
            <numerusform>%Ln Warnung</numerusform>
            <numerusform>%Ln Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>1 note</source>
        <translation>1 Hinweis</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln Hinweis</numerusform>
            <numerusform>%Ln Hinweise</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Findings: %1</source>
        <translation>&amp;Hinweise: %1</translation>
    </message>
    <message>
        <source>&amp;Findings: %1, %2</source>
        <translation>&amp;Hinweise: %1, %2</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Copy as Table</source>
        <translation>Als Tabelle kopieren</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; is new</source>
        <translation>Blatt „%1“ ist neu</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; is not in the file any more</source>
        <translation>Blatt „%1“ ist nicht mehr in der Datei</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; has moved by %2</source>
        <translation>Blatt „%1“ ist um %2 verschoben</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; has another number of corners</source>
        <translation>Blatt „%1“ hat eine andere Anzahl von Ecken</translation>
    </message>
    <message>
        <source>Sheet &apos;%1&apos; is now called &apos;%2&apos;</source>
        <translation>Blatt „%1“ heißt jetzt „%2“</translation>
    </message>
    <message>
        <source>nothing changed against the older file</source>
        <translation>gegenüber der älteren Datei hat sich nichts geändert</translation>
    </message>
    <message>
        <source>against the older file: %1 new, %2 gone, %3 moved, %4 renamed</source>
        <translation>gegenüber der älteren Datei: %1 neu, %2 entfallen, %3 verschoben, %4 umbenannt</translation>
    </message>
    <message>
        <source>%1 - %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>A&amp;bout...</source>
        <translation>Übe&amp;r …</translation>
    </message>
    <message>
        <source>About This Program</source>
        <translation>Über dieses Programm</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>E&amp;xport as Table...</source>
        <translation>Als Tabelle exp&amp;ortieren …</translation>
    </message>
    <message>
        <source>Writes the marked sheets with all their attributes and corners to a file for spreadsheet programs.</source>
        <translation>Schreibt die markierten Blätter mit allen Attributen und Eckpunkten in eine Datei für Tabellenprogramme.</translation>
    </message>
    <message>
        <source>Workbook (*.xlsx)</source>
        <translation>Arbeitsmappe (*.xlsx)</translation>
    </message>
    <message>
        <source>OpenDocument spreadsheet (*.ods)</source>
        <translation>OpenDocument-Tabelle (*.ods)</translation>
    </message>
    <message>
        <source>Text with separators (*.csv)</source>
        <translation>Text mit Trennzeichen (*.csv)</translation>
    </message>
    <message>
        <source>its name has to end in .xlsx, .ods or .csv</source>
        <translation>ihr Name muss auf .xlsx, .ods oder .csv enden</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wird geschrieben</translation>
    </message>
    <message>
        <source>Writing %1 was cancelled</source>
        <translation>Das Schreiben von %1 wurde abgebrochen</translation>
    </message>
    <message>
        <source>Co&amp;unts as moved beyond:</source>
        <translation>Gilt als &amp;verschoben ab:</translation>
    </message>
    <message>
        <source>An export over an older GK2 file tells which sheets have moved by more than that, in units of the plan.</source>
        <translation>Ein Export über eine ältere GK2-Datei nennt die Blätter, die um mehr als das verschoben sind, in Einheiten des Plans.</translation>
    </message>
</context>
<context>
    <name>DxfWorkbench</name>
    <message>
        <source>Reads a DXF plan, chooses its sheets and exports them as GK2.</source>
        <translation>Liest einen DXF-Plan, wählt seine Blätter aus und exportiert sie als GK2.</translation>
    </message>
    <message>
        <source>The DXF plan to open.</source>
        <translation>Der DXF-Plan, der geöffnet werden soll.</translation>
    </message>
    <message>
        <source>Only one plan can be shown</source>
        <translation>Es kann nur ein Plan gezeigt werden</translation>
    </message>
</context>
<context>
    <name>Environment</name>
    <message>
        <source>User settings</source>
        <translation>Benutzereinstellungen</translation>
    </message>
    <message>
        <source>User layout</source>
        <translation>Benutzerlayout</translation>
    </message>
    <message>
        <source>Project settings</source>
        <translation>Projekteinstellungen</translation>
    </message>
    <message>
        <source>Project layout</source>
        <translation>Projektlayout</translation>
    </message>
    <message>
        <source>Menu defaults</source>
        <translation>Menüvorgaben</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>Server settings</source>
        <translation>Servereinstellungen</translation>
    </message>
    <message>
        <source>%1: %2 × %3, scale factor %4, %5 DPI (the screen itself says %6)</source>
        <translation>%1: %2 × %3, Skalierung %4, %5 DPI (der Bildschirm selbst meldet %6)</translation>
    </message>
    <message>
        <source>can be read and written</source>
        <translation>lesbar und beschreibbar</translation>
    </message>
    <message>
        <source>can be read</source>
        <translation>lesbar</translation>
    </message>
    <message>
        <source>can be written</source>
        <translation>beschreibbar</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>does not exist yet</source>
        <translation>noch nicht vorhanden</translation>
    </message>
    <message>
        <source>does not exist and cannot be made</source>
        <translation>nicht vorhanden, kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Command line</source>
        <translation>Befehlszeile</translation>
    </message>
    <message>
        <source>Locale</source>
        <translation>Gebietsschema</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Operating system</source>
        <translation>Betriebssystem</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
</context>
<context>
    <name>FileCommands</name>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is write-protected</source>
        <translation>sie ist schreibgeschützt</translation>
    </message>
    <message>
        <source>%1 was not written: %2</source>
        <translation>%1 wurde nicht geschrieben: %2</translation>
    </message>
    <message>
        <source>%1 is the plan itself</source>
        <translation>%1 ist der Plan selbst</translation>
    </message>
    <message>
        <source>%1 is no GK2 file, and stays as it is</source>
        <translation>%1 ist keine GK2-Datei und bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>There are no sheets to be written, and %1 stays as it is</source>
        <translation>Es sind keine Blätter zu schreiben, und %1 bleibt, wie es ist</translation>
    </message>
    <message>
        <source>Open plans</source>
        <translation>Pläne öffnen</translation>
    </message>
    <message>
        <source>DXF plans (*.dxf *.DXF);;All files (*)</source>
        <translation>DXF-Pläne (*.dxf *.DXF);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Export as GK2</source>
        <translation>Als GK2 exportieren</translation>
    </message>
    <message>
        <source>GK2 files (*.txt);;All files (*)</source>
        <translation>GK2-Dateien (*.txt);;Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets were written to %1</source>
        <translation>
            <numerusform>%n Blätter wurden in %1 geschrieben</numerusform>
            <numerusform>%n Blätter wurden in %1 geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>Export as table</source>
        <translation>Als Tabelle exportieren</translation>
    </message>
    <message>
        <source>Tables (*.xlsx *.ods *.csv *.pdf);;All files (*)</source>
        <translation>Tabellen (*.xlsx *.ods *.csv *.pdf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 has none of the endings .xlsx, .ods, .csv and .pdf</source>
        <translation>%1 hat keine der Endungen .xlsx, .ods, .csv und .pdf</translation>
    </message>
    <message numerus="yes">
        <source>%n rows were written to %1</source>
        <translation>
            <numerusform>%n Zeilen wurden in %1 geschrieben</numerusform>
            <numerusform>%n Zeilen wurden in %1 geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
    <message>
        <source>1 sheet was written to %1</source>
        <translation>1 Blatt wurde in %1 geschrieben</translation>
    </message>
    <message>
        <source>1 row was written to %1</source>
        <translation>1 Zeile wurde in %1 geschrieben</translation>
    </message>
</context>
<context>
    <name>FindingModel</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
</context>
<context>
    <name>LinkDock</name>
    <message>
        <source>Linked sheets</source>
        <translation>Verknüpfte Blätter</translation>
    </message>
    <message>
        <source>Sheets that show it:</source>
        <translation>Blätter, die es zeigen:</translation>
    </message>
    <message>
        <source>Objects of this sheet:</source>
        <translation>Objekte dieses Blattes:</translation>
    </message>
    <message>
        <source>No sheet shows the object %1</source>
        <translation>Kein Blatt zeigt das Objekt %1</translation>
    </message>
    <message>
        <source>There is no database</source>
        <translation>Es gibt keine Datenbank</translation>
    </message>
    <message>
        <source>Sheets that show %1:</source>
        <translation>Blätter, die %1 zeigen:</translation>
    </message>
    <message>
        <source>%1, sheet %2</source>
        <translation>%1, Blatt %2</translation>
    </message>
    <message>
        <source>Link an object</source>
        <translation>Objekt verknüpfen</translation>
    </message>
    <message>
        <source>Identifier of the object at the middle of the view:</source>
        <translation>Kennung des Objekts in der Mitte der Ansicht:</translation>
    </message>
</context>
<context>
    <name>LinkedObjects</name>
    <message>
        <source>A link lacks its object or a finite number.</source>
        <translation>Einer Verknüpfung fehlt das Objekt oder eine endliche Zahl.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>%1 - Plan viewer</source>
        <translation>%1 - Planbetrachter</translation>
    </message>
    <message>
        <source>Plan viewer</source>
        <translation>Planbetrachter</translation>
    </message>
    <message>
        <source>%1 was read again</source>
        <translation>%1 wurde neu gelesen</translation>
    </message>
    <message>
        <source>%1; it is shown as it was read before</source>
        <translation>%1; gezeigt wird, was vorher gelesen wurde</translation>
    </message>
</context>
<context>
    <name>MenuConfigDialog</name>
    <message>
        <source>&amp;Shortcuts</source>
        <translation>Tastenkürze&amp;l</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>Rüc&amp;kgängig</translation>
    </message>
    <message>
        <source>R&amp;edo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>The menu configuration has gone; nothing can be applied any more.</source>
        <translation>Die Menükonfiguration gibt es nicht mehr; es lässt sich nichts mehr anwenden.</translation>
    </message>
    <message>
        <source>The functions have gone; nothing can be applied any more.</source>
        <translation>Die Funktionen gibt es nicht mehr; es lässt sich nichts mehr anwenden.</translation>
    </message>
    <message>
        <source>Configure Shortcuts and Menus</source>
        <translation>Tastenkürzel und Menüs einrichten</translation>
    </message>
    <message>
        <source>%1 cannot be written; nothing was applied.</source>
        <translation>%1 lässt sich nicht schreiben; nichts wurde angewendet.</translation>
    </message>
    <message>
        <source>The shortcuts are in force, but %1 could not be written.</source>
        <translation>Die Tastenkürzel gelten, aber %1 ließ sich nicht schreiben.</translation>
    </message>
    <message>
        <source>Exchan&amp;ge</source>
        <translation>Austau&amp;schen</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
    <message>
        <source>Import a Configuration</source>
        <translation>Konfiguration importieren</translation>
    </message>
    <message>
        <source>Configurations (*.ini)</source>
        <translation>Konfigurationen (*.ini)</translation>
    </message>
    <message>
        <source>%1 is no longer as it was shown; nothing was imported.</source>
        <translation>%1 ist nicht mehr wie angezeigt; nichts wurde importiert.</translation>
    </message>
    <message>
        <source>import</source>
        <translation>Import</translation>
    </message>
    <message>
        <source>Export the Configuration</source>
        <translation>Konfiguration exportieren</translation>
    </message>
    <message>
        <source>Conte&amp;xt Menu</source>
        <translation>Konte&amp;xtmenü</translation>
    </message>
    <message>
        <source>&amp;Save Overview…</source>
        <translation>Übersicht &amp;speichern…</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Konfiguration</translation>
    </message>
    <message>
        <source>Changes to “%1” have not been applied.</source>
        <translation>Änderungen an „%1“ sind noch nicht angewendet.</translation>
    </message>
    <message>
        <source>Save the Overview</source>
        <translation>Übersicht speichern</translation>
    </message>
    <message>
        <source>PDF or HTML (*.pdf *.html *.htm)</source>
        <translation>PDF oder HTML (*.pdf *.html *.htm)</translation>
    </message>
</context>
<context>
    <name>MenuConfigFile</name>
    <message>
        <source>%1 claims to have %2 elements</source>
        <translation>%1 soll %2 Einträge haben</translation>
    </message>
    <message>
        <source>function %1 comes twice</source>
        <translation>Funktion %1 kommt zweimal vor</translation>
    </message>
    <message>
        <source>the keys of function %1 are too long</source>
        <translation>die Tasten der Funktion %1 sind zu lang</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2.</source>
        <translation>%1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>%1 is too large for a configuration.</source>
        <translation>%1 ist zu groß für eine Konfiguration.</translation>
    </message>
    <message>
        <source>%1 holds no menu configuration.</source>
        <translation>%1 enthält keine Menükonfiguration.</translation>
    </message>
    <message>
        <source>%1 is damaged: %2.</source>
        <translation>%1 ist beschädigt: %2.</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 lässt sich nicht schreiben.</translation>
    </message>
</context>
<context>
    <name>MenuConfigImport</name>
    <message>
        <source>This program does not know the function; it is kept.</source>
        <translation>Dieses Programm kennt die Funktion nicht; sie bleibt erhalten.</translation>
    </message>
</context>
<context>
    <name>MenuConfigRivals</name>
    <message>
        <source>%1 is taken: %2.</source>
        <translation>%1 ist vergeben: %2.</translation>
    </message>
    <message>
        <source>%1 begins with %2, which is taken: %3.</source>
        <translation>%1 beginnt mit %2, und das ist vergeben: %3.</translation>
    </message>
    <message>
        <source>%1 is the beginning of %2, which is taken: %3.</source>
        <translation>%1 ist der Anfang von %2, und das ist vergeben: %3.</translation>
    </message>
    <message>
        <source>reserved by the program</source>
        <translation>vom Programm reserviert</translation>
    </message>
    <message>
        <source>a bookmark</source>
        <translation>ein Lesezeichen</translation>
    </message>
    <message>
        <source>%1 One more is in the way.</source>
        <translation>%1 Eine weitere ist im Weg.</translation>
    </message>
    <message numerus="yes">
        <source>%1 %n more are in the way.</source>
        <translation>
            <numerusform>%1 %n weitere sind im Weg.</numerusform>
            <numerusform>%1 %n weitere sind im Weg.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MenuConfigTexts</name>
    <message>
        <source>Function %1</source>
        <translation>Funktion %1</translation>
    </message>
    <message>
        <source>none</source>
        <comment>shortcut</comment>
        <translation>keines</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 ließ sich nicht schreiben.</translation>
    </message>
    <message>
        <source>group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>sub-context %1</source>
        <translation>Unterkontext %1</translation>
    </message>
    <message>
        <source>some modes</source>
        <translation>manche Modi</translation>
    </message>
    <message>
        <source>everywhere</source>
        <translation>überall</translation>
    </message>
</context>
<context>
    <name>NavGallery</name>
    <message>
        <source>Sheet %1</source>
        <translation>Blatt %1</translation>
    </message>
    <message>
        <source>light or dark.</source>
        <translation>light oder dark.</translation>
    </message>
    <message>
        <source>Degrees clockwise.</source>
        <translation>Grad im Uhrzeigersinn.</translation>
    </message>
    <message>
        <source>Of the view.</source>
        <translation>Größe der Ansicht.</translation>
    </message>
    <message>
        <source>Lay out from right to left.</source>
        <translation>Von rechts nach links anordnen.</translation>
    </message>
    <message>
        <source>Save a picture instead of opening a window.</source>
        <translation>Ein Bild speichern, statt ein Fenster zu öffnen.</translation>
    </message>
    <message>
        <source>nav-gallery: an angle and a size such as 1000x700, at least 80x80, are wanted</source>
        <translation>nav-gallery: ein Winkel und eine Größe wie 1000x700, mindestens 80x80, werden erwartet</translation>
    </message>
    <message>
        <source>Navigation controls</source>
        <translation>Bedienelemente der Navigation</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>OfferModel</name>
    <message>
        <source>%1 (1 insert)</source>
        <extracomment>%1 is a tag or a value of attributes</extracomment>
        <translation>%1 (1 Blockeinfügung)</translation>
    </message>
    <message numerus="yes">
        <source>%1 (%n inserts)</source>
        <translation>
            <numerusform>%1 (%n Blockeinfügung)</numerusform>
            <numerusform>%1 (%n Blockeinfügungen)</numerusform>
        </translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
</context>
<context>
    <name>PartnerChannel</name>
    <message>
        <source>The partner does not carry the command out</source>
        <translation>Das Partnerprogramm führt den Befehl nicht aus</translation>
    </message>
    <message>
        <source>The partner does not answer</source>
        <translation>Das Partnerprogramm antwortet nicht</translation>
    </message>
    <message>
        <source>Commands cannot be exchanged in %1: another viewer uses it, or it cannot be written to</source>
        <translation>In %1 lassen sich keine Befehle austauschen: ein anderer Betrachter benutzt es, oder es ist nicht beschreibbar</translation>
    </message>
    <message>
        <source>Partner: off</source>
        <translation>Partner: aus</translation>
    </message>
    <message>
        <source>Partner: not available</source>
        <translation>Partner: nicht verfügbar</translation>
    </message>
    <message>
        <source>Partner: runs</source>
        <translation>Partner: läuft</translation>
    </message>
    <message>
        <source>Partner: waiting</source>
        <translation>Partner: wartet</translation>
    </message>
    <message>
        <source>Commands are not exchanged: see the menu &quot;Partner&quot;</source>
        <translation>Es werden keine Befehle ausgetauscht: siehe das Menü „Partner“</translation>
    </message>
    <message>
        <source>Sent to the partner</source>
        <translation>An das Partnerprogramm gesendet</translation>
    </message>
    <message>
        <source>No object is linked to this sheet</source>
        <translation>Mit diesem Blatt ist kein Objekt verknüpft</translation>
    </message>
    <message>
        <source>Start partner</source>
        <translation>Partnerprogramm starten</translation>
    </message>
    <message>
        <source>Program and arguments:</source>
        <translation>Programm und Argumente:</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be started</source>
        <translation>„%1“ ließ sich nicht starten</translation>
    </message>
    <message>
        <source>The visible area cannot be handed to the partner: there is no room for its file, or its folder is write-protected</source>
        <translation>Der sichtbare Bereich lässt sich nicht an den Partner geben: für seine Datei ist kein Platz, oder ihr Ordner ist schreibgeschützt</translation>
    </message>
</context>
<context>
    <name>PartnerSim</name>
    <message>
        <source>Plays the partner program: sends commands to the viewer and prints what it receives.

Commands: &quot;goto X Y [NORTH [HEIGHT]]&quot;, &quot;find OBJECT&quot;, test, &quot;integer N&quot;,
&quot;raw NAME PARAMETERS&quot;; with the word front behind it, the viewer shall come to the front.
Without commands it listens. Example:
  partner-sim /tmp/exchange &quot;goto 3500000 5800000 0 250&quot; &quot;find ABC front&quot;

Exits with 0 when all was accepted, 1 after refusal or silence, 2 when it cannot start.</source>
        <translation>Spielt das Partnerprogramm: sendet Befehle an den Betrachter und gibt aus, was es empfängt.

Befehle: &quot;goto X Y [NORTH [HEIGHT]]&quot;, &quot;find OBJECT&quot;, test, &quot;integer N&quot;,
&quot;raw NAME PARAMETERS&quot;; mit dem Wort front dahinter soll der Betrachter nach vorn kommen.
Ohne Befehle empfängt es nur. Beispiel:
  partner-sim /tmp/exchange &quot;goto 3500000 5800000 0 250&quot; &quot;find ABC front&quot;

Endet mit 0, wenn alles angenommen wurde, 1 nach Ablehnung oder Schweigen, 2, wenn es nicht beginnen kann.</translation>
    </message>
    <message>
        <source>%1 (--help explains)</source>
        <translation>%1 (Hilfe mit --help)</translation>
    </message>
    <message>
        <source>Where the exchange files are.</source>
        <translation>Wo die Austauschdateien liegen.</translation>
    </message>
    <message>
        <source>What to send, in order.</source>
        <translation>Was zu senden ist, der Reihe nach.</translation>
    </message>
    <message>
        <source>Send the commands in a file, one a line, before the others.</source>
        <translation>Zuerst die Befehle aus einer Datei senden, einer je Zeile.</translation>
    </message>
    <message>
        <source>Go on receiving when all is sent.</source>
        <translation>Weiter empfangen, wenn alles gesendet ist.</translation>
    </message>
    <message>
        <source>Print JSON objects, one a line.</source>
        <translation>JSON-Objekte ausgeben, eines je Zeile.</translation>
    </message>
    <message>
        <source>Go on as this sender: command k has number k.</source>
        <translation>Als dieser Absender fortfahren: Befehl k hat die Nummer k.</translation>
    </message>
    <message>
        <source>Send a command again when there is silence.</source>
        <translation>Einen Befehl erneut senden, wenn keine Antwort kommt.</translation>
    </message>
    <message>
        <source>Milliseconds until no answer is silence.</source>
        <translation>Millisekunden, nach denen keine Antwort mehr erwartet wird.</translation>
    </message>
    <message>
        <source>Milliseconds between two looks at the files.</source>
        <translation>Millisekunden zwischen zwei Blicken in die Dateien.</translation>
    </message>
    <message>
        <source>Append what is received to a file, each exactly once.</source>
        <translation>Empfangenes an eine Datei anhängen, alles genau einmal.</translation>
    </message>
    <message>
        <source>Refuse what is received.</source>
        <translation>Empfangenes ablehnen.</translation>
    </message>
    <message>
        <source>Write like a careless partner: plain, bytes or half.</source>
        <translation>Wie ein nachlässiges Partnerprogramm schreiben: plain, bytes oder half.</translation>
    </message>
    <message>
        <source>there is no exchange directory</source>
        <translation>das Austauschverzeichnis gibt es nicht</translation>
    </message>
    <message>
        <source>a sender has 1 to 64 of A-Z a-z 0-9 . _ -</source>
        <translation>ein Absender hat 1 bis 64 der Zeichen A-Z a-z 0-9 . _ -</translation>
    </message>
    <message>
        <source>milliseconds are whole numbers from 1 on</source>
        <translation>Millisekunden sind ganze Zahlen ab 1</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;</source>
        <translation>„%1“ lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>unknown manner</source>
        <translation>diese Schreibweise ist unbekannt</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;</source>
        <translation>„%1“ lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>no command: %1</source>
        <translation>kein Befehl: %1</translation>
    </message>
</context>
<context>
    <name>PieGallery</name>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>Strecke &amp;messen</translation>
    </message>
    <message>
        <source>&amp;North up</source>
        <translation>&amp;Norden oben</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>G&amp;itternetz</translation>
    </message>
    <message>
        <source>&amp;Bookmark</source>
        <translation>&amp;Lesezeichen setzen</translation>
    </message>
    <message>
        <source>&amp;Whole plan</source>
        <translation>Ganzer &amp;Plan</translation>
    </message>
    <message>
        <source>P&amp;an</source>
        <translation>&amp;Verschieben</translation>
    </message>
    <message>
        <source>No&amp;te</source>
        <translation>No&amp;tiz anheften</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>K&amp;opieren</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Streets</source>
        <translation>&amp;Straßen</translation>
    </message>
    <message>
        <source>&amp;Buildings</source>
        <translation>&amp;Gebäude</translation>
    </message>
    <message>
        <source>&amp;Water</source>
        <translation>Ge&amp;wässer</translation>
    </message>
    <message>
        <source>&amp;Trees</source>
        <translation>&amp;Bäume</translation>
    </message>
    <message>
        <source>&amp;Heights</source>
        <translation>&amp;Höhen</translation>
    </message>
    <message>
        <source>&amp;Layers</source>
        <translation>&amp;Ebenen</translation>
    </message>
    <message>
        <source>Pie menus</source>
        <translation>Kreismenüs</translation>
    </message>
    <message>
        <source>Sub-menus at once</source>
        <translation>Untermenüs sofort öffnen</translation>
    </message>
    <message>
        <source>Fade in</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Press a mouse button on the plan, or the space bar.</source>
        <translation>Eine Maustaste auf dem Plan oder die Leertaste drücken.</translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
    <message>
        <source>4, 8 or 12 items.</source>
        <translation>4, 8 oder 12 Einträge.</translation>
    </message>
    <message>
        <source>light, dark or contrast.</source>
        <translation>light, dark oder contrast (hell, dunkel, hoher Kontrast).</translation>
    </message>
    <message>
        <source>Save a picture instead of opening a window.</source>
        <translation>Ein Bild speichern, statt ein Fenster zu öffnen.</translation>
    </message>
    <message>
        <source>Sub-menus around the pointer</source>
        <translation>Untermenüs um den Mauszeiger</translation>
    </message>
    <message>
        <source>Digits</source>
        <translation>Ziffern</translation>
    </message>
</context>
<context>
    <name>PlanOpener</name>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: there is not enough memory</source>
        <translation>%1: der Speicher reicht nicht aus</translation>
    </message>
</context>
<context>
    <name>PlanView</name>
    <message>
        <source>Plan</source>
        <translation>Plan</translation>
    </message>
</context>
<context>
    <name>QtPieMenu</name>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>top right</source>
        <translation>oben rechts</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>top left</source>
        <translation>oben links</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>bottom left</source>
        <translation>unten links</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>bottom right</source>
        <translation>unten rechts</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 von %3</translation>
    </message>
</context>
<context>
    <name>RecentPlans</name>
    <message>
        <source>Open rec&amp;ent</source>
        <translation>&amp;Zuletzt gelesen</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
</context>
<context>
    <name>RemainingTime</name>
    <message numerus="yes">
        <source>about %n seconds left</source>
        <translation>
            <numerusform>noch etwa %n Sekunde</numerusform>
            <numerusform>noch etwa %n Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n minutes left</source>
        <translation>
            <numerusform>noch etwa %n Minute</numerusform>
            <numerusform>noch etwa %n Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n hours left</source>
        <translation>
            <numerusform>noch etwa %n Stunde</numerusform>
            <numerusform>noch etwa %n Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>about 1 second left</source>
        <translation>noch etwa 1 Sekunde</translation>
    </message>
    <message>
        <source>about 1 minute left</source>
        <translation>noch etwa 1 Minute</translation>
    </message>
    <message>
        <source>about 1 hour left</source>
        <translation>noch etwa 1 Stunde</translation>
    </message>
</context>
<context>
    <name>Screenshot</name>
    <message>
        <source>%1 cannot be written</source>
        <translation>%1 lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>The scale of the view is not known</source>
        <translation>Der Maßstab der Ansicht ist nicht bekannt</translation>
    </message>
</context>
<context>
    <name>ServerProcess::Run</name>
    <message>
        <source>The folder &apos;%1&apos; for the server cannot be made.</source>
        <translation>Der Ordner „%1“ für den Server kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; for the server cannot be written.</source>
        <translation>Die Datei „%1“ für den Server kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>it ended at once</source>
        <translation>er endete sofort</translation>
    </message>
    <message>
        <source>The server &apos;%1&apos; ended five times within ten minutes and is not started again. Its output is in &apos;%2&apos;.</source>
        <translation>Der Server „%1“ endete fünfmal innerhalb von zehn Minuten und wird nicht mehr gestartet. Seine Ausgaben stehen in „%2“.</translation>
    </message>
    <message>
        <source>The server &apos;%1&apos; cannot be started: %2.</source>
        <translation>Der Server „%1“ kann nicht gestartet werden: %2.</translation>
    </message>
</context>
<context>
    <name>SheetCorners</name>
    <message>
        <source>no corners</source>
        <translation>keine Ecken</translation>
    </message>
    <message>
        <source>Top left: %1</source>
        <translation>Oben links: %1</translation>
    </message>
    <message>
        <source>Top right: %1</source>
        <translation>Oben rechts: %1</translation>
    </message>
    <message>
        <source>Bottom right: %1</source>
        <translation>Unten rechts: %1</translation>
    </message>
    <message>
        <source>Bottom left: %1</source>
        <translation>Unten links: %1</translation>
    </message>
</context>
<context>
    <name>SheetFilter</name>
    <message>
        <source>The plan has no block inserts</source>
        <translation>Der Plan hat keine Blockeinfügungen</translation>
    </message>
    <message>
        <source>All sheets of the plan lie inside blocks, where they do not count</source>
        <translation>Alle Blätter des Plans liegen in Blöcken, wo sie nicht zählen</translation>
    </message>
    <message>
        <source>No block insert of the plan has a polyline that could be a sheet frame</source>
        <translation>Keine Blockeinfügung des Plans hat eine Polylinie, die ein Blattrahmen sein könnte</translation>
    </message>
    <message>
        <source>Enter the tag that sheets must have</source>
        <translation>Den Attributnamen eingeben, den Blätter haben müssen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has characters that the plan&apos;s character set lacks</source>
        <translation>„%1“ hat Zeichen, die im Zeichensatz des Plans fehlen</translation>
    </message>
    <message>
        <source>No sheet has the attribute &apos;%1&apos;</source>
        <translation>Kein Blatt hat das Attribut „%1“</translation>
    </message>
    <message>
        <source>No sheet has the attribute &apos;%1&apos;; there is &apos;%2&apos;, however</source>
        <translation>Kein Blatt hat das Attribut „%1“, es gibt aber „%2“</translation>
    </message>
    <message>
        <source>No sheet has the value &apos;%2&apos; in the attribute &apos;%1&apos;</source>
        <translation>Kein Blatt hat den Wert „%2“ im Attribut „%1“</translation>
    </message>
    <message>
        <source>No sheet has the value &apos;%2&apos; in the attribute &apos;%1&apos;; there is &apos;%3&apos;, however</source>
        <translation>Kein Blatt hat den Wert „%2“ im Attribut „%1“, es gibt aber „%3“</translation>
    </message>
    <message>
        <source>All sheets that would be left have the attribute &apos;%1&apos;, so they are not included</source>
        <translation>Alle übrigen Blätter haben das Attribut „%1“ und werden deshalb ausgelassen</translation>
    </message>
</context>
<context>
    <name>SheetTable</name>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Sheets</source>
        <translation>Blätter</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>Block</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Concerns</source>
        <translation>Betrifft</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
</context>
<context>
    <name>SheetTableModel</name>
    <message>
        <source>Not exported: the block insert has no sheet number</source>
        <translation>Nicht exportiert: Die Blockeinfügung hat keine Blattnummer</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>Block</translation>
    </message>
    <message>
        <source>Corners</source>
        <translation>Ecken</translation>
    </message>
    <message>
        <source>Order of the export; ticked sheets are exported</source>
        <translation>Reihenfolge des Exports; Blätter mit Häkchen werden exportiert</translation>
    </message>
    <message>
        <source>Sheet number as it stands in the plan</source>
        <translation>Blattnummer, wie sie im Plan steht</translation>
    </message>
    <message>
        <source>Block that carries the sheet frame</source>
        <translation>Block, der den Blattrahmen trägt</translation>
    </message>
    <message>
        <source>Top left and bottom right corners</source>
        <translation>Ecken oben links und unten rechts</translation>
    </message>
</context>
<context>
    <name>ShortcutOverview</name>
    <message>
        <source>Keyboard Shortcuts: %1</source>
        <translation>Tastenkürzel: %1</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>No function has a shortcut.</source>
        <translation>Keine Funktion hat ein Tastenkürzel.</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 lässt sich nicht schreiben.</translation>
    </message>
</context>
<context>
    <name>Spreadsheet</name>
    <message>
        <source>Plain text with separators.</source>
        <translation>Text mit Trennzeichen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be written: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>it is write-protected</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be written: nothing here writes %2 files.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2-Dateien schreibt hier nichts.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be started: %2</source>
        <translation>„%1“ kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>Sheet</source>
        <translation>Blatt</translation>
    </message>
    <message>
        <source>A text of more than 32,767 characters was cut</source>
        <translation>Ein Text mit mehr als 32.767 Zeichen wurde gekürzt</translation>
    </message>
    <message numerus="yes">
        <source>%n texts of more than 32,767 characters were cut</source>
        <translation>
            <numerusform>%n Texte mit mehr als 32.767 Zeichen wurden gekürzt</numerusform>
            <numerusform>%n Texte mit mehr als 32.767 Zeichen wurden gekürzt</numerusform>
        </translation>
    </message>
    <message>
        <source>A text held characters that a file cannot hold</source>
        <translation>Ein Text enthielt Zeichen, die keine Datei aufnehmen kann</translation>
    </message>
    <message numerus="yes">
        <source>%n texts held characters that a file cannot hold</source>
        <translation>
            <numerusform>%n Texte enthielten Zeichen, die keine Datei aufnehmen kann</numerusform>
            <numerusform>%n Texte enthielten Zeichen, die keine Datei aufnehmen kann</numerusform>
        </translation>
    </message>
    <message>
        <source>A text that looks like a formula got an apostrophe</source>
        <translation>Ein Text, der wie eine Formel aussieht, bekam einen Apostroph</translation>
    </message>
    <message numerus="yes">
        <source>%n texts that look like formulas got an apostrophe</source>
        <translation>
            <numerusform>%n Texte, die wie Formeln aussehen, bekamen einen Apostroph</numerusform>
            <numerusform>%n Texte, die wie Formeln aussehen, bekamen einen Apostroph</numerusform>
        </translation>
    </message>
    <message>
        <source>A link that the sheet has no room for is plain text</source>
        <translation>Ein Verweis, für den das Blatt keinen Platz hat, steht als Text da</translation>
    </message>
    <message numerus="yes">
        <source>%n links that the sheet has no room for are plain text</source>
        <translation>
            <numerusform>%n Verweise, für die das Blatt keinen Platz hat, stehen als Text da</numerusform>
            <numerusform>%n Verweise, für die das Blatt keinen Platz hat, stehen als Text da</numerusform>
        </translation>
    </message>
    <message>
        <source>A number of more than 15 digits was written as text</source>
        <translation>Eine Zahl mit mehr als 15 Stellen wurde als Text geschrieben</translation>
    </message>
    <message numerus="yes">
        <source>%n numbers of more than 15 digits were written as text</source>
        <translation>
            <numerusform>%n Zahlen mit mehr als 15 Stellen wurden als Text geschrieben</numerusform>
            <numerusform>%n Zahlen mit mehr als 15 Stellen wurden als Text geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>A value that is no finite number was left empty</source>
        <translation>Ein Wert, der keine endliche Zahl ist, blieb leer</translation>
    </message>
    <message numerus="yes">
        <source>%n values that are no finite numbers were left empty</source>
        <translation>
            <numerusform>%n Werte, die keine endlichen Zahlen sind, blieben leer</numerusform>
            <numerusform>%n Werte, die keine endlichen Zahlen sind, blieben leer</numerusform>
        </translation>
    </message>
    <message>
        <source>A date before 1900 or after 9999 was written as text</source>
        <translation>Ein Datum vor 1900 oder nach 9999 wurde als Text geschrieben</translation>
    </message>
    <message numerus="yes">
        <source>%n dates before 1900 or after 9999 were written as text</source>
        <translation>
            <numerusform>%n Daten vor 1900 oder nach 9999 wurden als Text geschrieben</numerusform>
            <numerusform>%n Daten vor 1900 oder nach 9999 wurden als Text geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>A sheet was full and goes on in another one</source>
        <translation>Ein Blatt war voll und wird in einem weiteren fortgesetzt</translation>
    </message>
    <message numerus="yes">
        <source>Full sheets go on in %n others</source>
        <translation>
            <numerusform>Volle Blätter werden in %n weiteren fortgesetzt</numerusform>
            <numerusform>Volle Blätter werden in %n weiteren fortgesetzt</numerusform>
        </translation>
    </message>
    <message>
        <source>The name of a sheet was not allowed and was changed</source>
        <translation>Der Name eines Blattes war nicht erlaubt und wurde geändert</translation>
    </message>
    <message numerus="yes">
        <source>The names of %n sheets were not allowed and were changed</source>
        <translation>
            <numerusform>Die Namen von %n Blättern waren nicht erlaubt und wurden geändert</numerusform>
            <numerusform>Die Namen von %n Blättern waren nicht erlaubt und wurden geändert</numerusform>
        </translation>
    </message>
    <message>
        <source>A column beyond the last one of a sheet was left out</source>
        <translation>Eine Spalte hinter der letzten eines Blattes wurde ausgelassen</translation>
    </message>
    <message numerus="yes">
        <source>%n columns beyond the last one of a sheet were left out</source>
        <translation>
            <numerusform>%n Spalten hinter der letzten eines Blattes wurden ausgelassen</numerusform>
            <numerusform>%n Spalten hinter der letzten eines Blattes wurden ausgelassen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (%2).</source>
        <translation>%1 (%2).</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>the sheet &apos;%1&apos; cannot be added</source>
        <translation>das Blatt „%1“ kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>there is no room in the temporary folder</source>
        <translation>im temporären Ordner ist kein Platz</translation>
    </message>
    <message>
        <source>libxlsxwriter %1.</source>
        <translation>libxlsxwriter %1.</translation>
    </message>
    <message>
        <source>%1 %2.</source>
        <translation>%1 %2.</translation>
    </message>
    <message>
        <source>%1 is not installed.</source>
        <translation>%1 ist nicht installiert.</translation>
    </message>
    <message>
        <source>%1 %2 is too old.</source>
        <translation>%1 %2 ist zu alt.</translation>
    </message>
    <message>
        <source>a folder for %1 cannot be made: %2</source>
        <translation>ein Ordner für %1 kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>%1 did not finish within %2 s</source>
        <translation>%1 wurde nicht innerhalb von %2 s fertig</translation>
    </message>
    <message>
        <source>%1 wrote nothing (%2)</source>
        <translation>%1 hat nichts geschrieben (%2)</translation>
    </message>
    <message>
        <source>what %1 wrote cannot be moved</source>
        <translation>was %1 geschrieben hat, kann nicht verschoben werden</translation>
    </message>
    <message>
        <source>%1 is not installed</source>
        <translation>%1 ist nicht installiert</translation>
    </message>
    <message>
        <source>%1 could not do it (%2)</source>
        <translation>%1 konnte es nicht (%2)</translation>
    </message>
    <message>
        <source>%1 wrote nothing</source>
        <translation>%1 hat nichts geschrieben</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Reading</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Sheet %1</source>
        <translation>Blatt %1</translation>
    </message>
    <message>
        <source>1 : %1, from %2 m</source>
        <translation>1 : %1, aus %2 m</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Reading a plan; Escape cancels</source>
        <translation>Ein Plan wird gelesen; Esc bricht ab</translation>
    </message>
    <message>
        <source>Reading what is drawn around the sheets; Escape cancels</source>
        <translation>Es wird gelesen, was um die Blätter herum gezeichnet ist; Esc bricht ab</translation>
    </message>
</context>
<context>
    <name>StoredViewDock</name>
    <message>
        <source>Stored views</source>
        <translation>Gespeicherte Ansichten</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Store...</source>
        <translation>&amp;Speichern …</translation>
    </message>
    <message>
        <source>Sheet %1</source>
        <translation>Blatt %1</translation>
    </message>
    <message>
        <source>Store view</source>
        <translation>Ansicht speichern</translation>
    </message>
    <message>
        <source>Name of the view:</source>
        <translation>Name der Ansicht:</translation>
    </message>
    <message>
        <source>%1 cannot be shown: its plan or sheet is not there</source>
        <translation>%1 lässt sich nicht zeigen: der Plan oder das Blatt ist nicht da</translation>
    </message>
</context>
<context>
    <name>StyleSheet</name>
    <message>
        <source>The style sheet %1 could not be read: %2.</source>
        <translation>Die Stilvorlage %1 ließ sich nicht lesen: %2.</translation>
    </message>
</context>
<context>
    <name>ToolCommands</name>
    <message>
        <source>About this viewer</source>
        <translation>Über diesen Betrachter</translation>
    </message>
    <message>
        <source>Shows the sheets of DXF plans with what is drawn around them.</source>
        <translation>Zeigt die Blätter von DXF-Plänen mit dem, was um sie herum gezeichnet ist.</translation>
    </message>
</context>
<context>
    <name>ViewCommands</name>
    <message>
        <source>There is not enough memory to place the sheets</source>
        <translation>Der Speicher reicht nicht aus, um die Blätter zu platzieren</translation>
    </message>
    <message>
        <source>Go to sheet</source>
        <translation>Gehe zu Blatt</translation>
    </message>
    <message>
        <source>Number of the sheet:</source>
        <translation>Blattnummer:</translation>
    </message>
    <message>
        <source>%1 has no sheet %2</source>
        <translation>%1 hat kein Blatt %2</translation>
    </message>
    <message>
        <source>Go to coordinates</source>
        <translation>Gehe zu Koordinaten</translation>
    </message>
    <message>
        <source>East, north, height and angle, with commas between:</source>
        <translation>Rechtswert, Hochwert, Höhe und Winkel, mit Kommas dazwischen:</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no place: wanted are east, north and height in metres, and perhaps an angle, with commas between</source>
        <translation>„%1“ ist kein Ort: verlangt sind Rechtswert, Hochwert und Höhe in Metern und vielleicht ein Winkel, mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>The scale of this view is not known</source>
        <translation>Der Maßstab dieser Ansicht ist nicht bekannt</translation>
    </message>
</context>
<context>
    <name>ViewerActions</name>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>Neu &amp;lesen</translation>
    </message>
    <message>
        <source>Export as &amp;GK2...</source>
        <translation>Als &amp;GK2 exportieren …</translation>
    </message>
    <message>
        <source>Export as &amp;table...</source>
        <translation>Als &amp;Tabelle exportieren …</translation>
    </message>
    <message>
        <source>Save &amp;picture...</source>
        <translation>&amp;Bild speichern …</translation>
    </message>
    <message>
        <source>&amp;Close plan</source>
        <translation>Plan &amp;schließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Whole &amp;plan</source>
        <translation>Ganzer &amp;Plan</translation>
    </message>
    <message>
        <source>Whole &amp;sheet</source>
        <translation>Ganzes &amp;Blatt</translation>
    </message>
    <message>
        <source>Turn &amp;left</source>
        <translation>Nach &amp;links drehen</translation>
    </message>
    <message>
        <source>Turn &amp;right</source>
        <translation>Nach &amp;rechts drehen</translation>
    </message>
    <message>
        <source>&amp;North up</source>
        <translation>&amp;Norden oben</translation>
    </message>
    <message>
        <source>Pre&amp;vious view</source>
        <translation>&amp;Vorige Ansicht</translation>
    </message>
    <message>
        <source>Ne&amp;xt view</source>
        <translation>Nä&amp;chste Ansicht</translation>
    </message>
    <message>
        <source>&amp;Backdrop</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Sheets &amp;where their inserts put them</source>
        <translation>Blätter, wo ihre Blockeinfügungen sie hinse&amp;tzen</translation>
    </message>
    <message>
        <source>&amp;Controls over the view</source>
        <translation>Be&amp;dienelemente über der Ansicht</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>V&amp;ollbild</translation>
    </message>
    <message>
        <source>Go to &amp;sheet...</source>
        <translation>Gehe zu &amp;Blatt …</translation>
    </message>
    <message>
        <source>Go to &amp;coordinates...</source>
        <translation>Gehe zu &amp;Koordinaten …</translation>
    </message>
    <message>
        <source>Store &amp;view...</source>
        <translation>Ansicht &amp;speichern …</translation>
    </message>
    <message>
        <source>Sho&amp;w in partner</source>
        <translation>Im Partnerprogramm &amp;zeigen</translation>
    </message>
    <message>
        <source>Show linked &amp;object in partner</source>
        <translation>Verknüpftes &amp;Objekt im Partnerprogramm zeigen</translation>
    </message>
    <message>
        <source>&amp;Link an object to this sheet...</source>
        <translation>Objekt mit diesem Blatt &amp;verknüpfen …</translation>
    </message>
    <message>
        <source>S&amp;tart partner...</source>
        <translation>Partnerprogramm &amp;starten …</translation>
    </message>
    <message>
        <source>&amp;Exchange commands</source>
        <translation>Befehle &amp;austauschen</translation>
    </message>
    <message>
        <source>&amp;Workbench</source>
        <translation>&amp;Werkbank</translation>
    </message>
    <message>
        <source>Stored &amp;views</source>
        <translation>Gespeicherte &amp;Ansichten</translation>
    </message>
    <message>
        <source>Linked s&amp;heets</source>
        <translation>&amp;Verknüpfte Blätter</translation>
    </message>
    <message>
        <source>&amp;Right button opens the sector menu</source>
        <translation>&amp;Rechte Taste öffnet das Sektormenü</translation>
    </message>
    <message>
        <source>&amp;About this viewer</source>
        <translation>Ü&amp;ber diesen Betrachter</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Gehe zu</translation>
    </message>
    <message>
        <source>&amp;Partner</source>
        <translation>&amp;Partner</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>&amp;Keyboard and menus...</source>
        <translation>&amp;Tastatur und Menüs ...</translation>
    </message>
    <message>
        <source>with an open plan</source>
        <translation>mit offenem Plan</translation>
    </message>
    <message>
        <source>on a sheet</source>
        <translation>auf einem Blatt</translation>
    </message>
</context>
<context>
    <name>WorkbenchDock</name>
    <message>
        <source>Workbench</source>
        <translation>Werkbank</translation>
    </message>
</context>
<context>
    <name>dxf2gk2</name>
    <message>
        <source>reading</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>analysing</source>
        <translation>Auswerten</translation>
    </message>
    <message>
        <source>would overwrite a plan: &apos;%1&apos;</source>
        <translation>würde einen Plan überschreiben: „%1“</translation>
    </message>
    <message>
        <source>writing</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>cannot write to standard output: %1</source>
        <translation>auf die Standardausgabe lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>%1 (--help explains)</source>
        <translation>%1 (Hilfe mit --help)</translation>
    </message>
    <message>
        <source>two results would go to &apos;%1&apos;</source>
        <translation>zwei Ergebnisse würden nach „%1“ geschrieben</translation>
    </message>
    <message>
        <source>Converts the map sheets of DXF plans to GK2 files.</source>
        <translation>Wandelt die Blattschnitte von DXF-Plänen in GK2-Dateien um.</translation>
    </message>
    <message>
        <source>Plans to convert; &quot;-&quot; reads standard input.</source>
        <translation>Umzuwandelnde Pläne; „-“ liest die Standardeingabe.</translation>
    </message>
    <message>
        <source>Write to FILE (one plan); &quot;-&quot; is standard output. Default: the plan&apos;s name with the suffix .txt.</source>
        <translation>Nach FILE schreiben (ein Plan); „-“ ist die Standardausgabe. Vorgabe: der Name des Plans mit der Endung .txt.</translation>
    </message>
    <message>
        <source>Write into the folder DIR (several plans).</source>
        <translation>In den Ordner DIR schreiben (mehrere Pläne).</translation>
    </message>
    <message>
        <source>Only inserts with this attribute value.</source>
        <translation>Nur Blockeinfügungen mit diesem Attributwert.</translation>
    </message>
    <message>
        <source>No inserts with this attribute.</source>
        <translation>Keine Blockeinfügungen mit diesem Attribut.</translation>
    </message>
    <message>
        <source>Label corners in drawing order, not by where they lie.</source>
        <translation>Blatteckpunkte nach der Zeichenreihenfolge bezeichnen, nicht nach ihrer Lage.</translation>
    </message>
    <message>
        <source>Print the sheets as a table; write nothing.</source>
        <translation>Die Blätter als Tabelle ausgeben; nichts schreiben.</translation>
    </message>
    <message>
        <source>Print the attribute tags with counts and example values.</source>
        <translation>Die Attributnamen mit Anzahl und Beispielwerten ausgeben; nichts schreiben.</translation>
    </message>
    <message>
        <source>Draw the sheets into FILE, an .svg or .png.</source>
        <translation>Die Blätter nach FILE zeichnen, .svg oder .png.</translation>
    </message>
    <message>
        <source>Print list or summary as one JSON object, errors too; in English.</source>
        <translation>Liste oder Zusammenfassung als ein JSON-Objekt ausgeben, auch Fehler; auf Englisch.</translation>
    </message>
    <message>
        <source>Exit with status 3 when there were warnings.</source>
        <translation>Bei Warnungen mit Status 3 enden.</translation>
    </message>
    <message>
        <source>Print failures only.</source>
        <translation>Nur Fehler ausgeben.</translation>
    </message>
    <message>
        <source>Show a progress bar: auto, always or never.</source>
        <translation>Den Fortschritt anzeigen: auto, always oder never (nach Bedarf, immer, nie).</translation>
    </message>
    <message>
        <source>Print the version; with --json also what is known of this run.</source>
        <translation>Die Version ausgeben; mit --json auch, was von diesem Lauf bekannt ist.</translation>
    </message>
    <message>
        <source>Print this help.</source>
        <translation>Diese Hilfe ausgeben.</translation>
    </message>
    <message>
        <source>no plan given</source>
        <translation>kein Plan angegeben</translation>
    </message>
    <message>
        <source>a plan&apos;s name is empty</source>
        <translation>der Name eines Plans ist leer</translation>
    </message>
    <message>
        <source>standard input can be read only once</source>
        <translation>die Standardeingabe lässt sich nur einmal lesen</translation>
    </message>
    <message>
        <source>--output and --output-dir exclude each other</source>
        <translation>--output und --output-dir schließen einander aus</translation>
    </message>
    <message>
        <source>--output takes the sheets of one plan only; use --output-dir</source>
        <translation>--output nimmt nur die Blätter eines Plans auf; für mehrere gibt es --output-dir</translation>
    </message>
    <message>
        <source>--preview shows one plan only</source>
        <translation>--preview zeigt nur einen Plan</translation>
    </message>
    <message>
        <source>--list and --list-tags write no file; leave --output and --output-dir out</source>
        <translation>--list und --list-tags schreiben keine Datei; --output und --output-dir passen nicht dazu</translation>
    </message>
    <message>
        <source>a plan from standard input has no name for --output-dir; use --output</source>
        <translation>ein Plan von der Standardeingabe hat keinen Namen für --output-dir; dafür gibt es --output</translation>
    </message>
    <message>
        <source>--json and the sheets cannot both go to standard output</source>
        <translation>--json und die Blätter können nicht beide auf die Standardausgabe</translation>
    </message>
    <message>
        <source>--%1 is given more than once</source>
        <translation>--%1 ist mehrfach angegeben</translation>
    </message>
    <message>
        <source>--include wants TAG=VALUE, not &apos;%1&apos;</source>
        <translation>--include braucht TAG=VALUE, nicht „%1“</translation>
    </message>
    <message>
        <source>--progress is auto, always or never, not &apos;%1&apos;</source>
        <translation>--progress ist auto, always oder never, nicht „%1“</translation>
    </message>
    <message>
        <source>--preview wants a file that ends in .svg or .png</source>
        <translation>--preview braucht eine Datei, die auf .svg oder .png endet</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>„%1“ lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>1 sheet</source>
        <translation>1 Blatt</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets</source>
        <translation>
            <numerusform>%n Blatt</numerusform>
            <numerusform>%n Blätter</numerusform>
        </translation>
    </message>
    <message>
        <source>1 sheet written to %1</source>
        <translation>1 Blatt nach %1 geschrieben</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets written to %1</source>
        <translation>
            <numerusform>%n Blatt nach %1 geschrieben</numerusform>
            <numerusform>%n Blätter nach %1 geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>no corners</source>
        <translation>keine Ecken</translation>
    </message>
    <message>
        <source>1 skipped</source>
        <translation>1 übersprungen</translation>
    </message>
    <message numerus="yes">
        <source>%n skipped</source>
        <translation>
            <numerusform>%n übersprungen</numerusform>
            <numerusform>%n übersprungen</numerusform>
        </translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>1 Warnung</translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <translation>
            <numerusform>%n Warnung</numerusform>
            <numerusform>%n Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>Block</translation>
    </message>
    <message>
        <source>Inserts</source>
        <translation>Einfügungen</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Attribut</translation>
    </message>
    <message>
        <source>Example values</source>
        <translation>Beispielwerte</translation>
    </message>
    <message>
        <source>it is write-protected</source>
        <translation>sie ist schreibgeschützt</translation>
    </message>
    <message>
        <source>memory does not suffice to analyse it</source>
        <translation>der Speicher reicht nicht, um ihn auszuwerten</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>„%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no GK2 file</source>
        <translation>„%1“ ist keine GK2-Datei</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is damaged: line %2 should hold a corner</source>
        <translation>„%1“ ist beschädigt: In Zeile %2 sollte eine Ecke stehen</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no GK2 file; it is replaced only with --force</source>
        <translation>„%1“ ist keine GK2-Datei und wird nur mit --force ersetzt</translation>
    </message>
    <message>
        <source>no sheet is left; &apos;%1&apos; would lose its sheets, and does only with --allow-empty</source>
        <translation>es bleibt kein Blatt übrig; „%1“ verlöre seine Blätter, was nur mit --allow-empty geschieht</translation>
    </message>
    <message>
        <source>Print what changed since the GK2 file OLD: sheets that are new, gone, moved or renamed. Writes sheets only with --output or --output-dir.</source>
        <translation>Gibt aus, was sich seit der GK2-Datei OLD geändert hat: neue, weggefallene, verschobene und umbenannte Blätter. Schreibt Blätter nur mit --output oder --output-dir.</translation>
    </message>
    <message>
        <source>How far a corner may lie from where it was (--compare). Default: 0.005.</source>
        <translation>Wie weit eine Ecke von ihrem früheren Ort liegen darf (--compare). Vorgabe: 0.005.</translation>
    </message>
    <message>
        <source>Replace files that are no GK2 files, too.</source>
        <translation>Ersetzt auch Dateien, die keine GK2-Dateien sind.</translation>
    </message>
    <message>
        <source>Replace a file that holds sheets even by one without any.</source>
        <translation>Ersetzt eine Datei mit Blättern auch durch eine ohne.</translation>
    </message>
    <message>
        <source>unknown option &apos;%1&apos;</source>
        <translation>unbekannte Option &apos;%1&apos;</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 nimmt keinen Wert</translation>
    </message>
    <message>
        <source>%1 wants a value</source>
        <translation>%1 verlangt einen Wert</translation>
    </message>
    <message>
        <source>--compare looks at one plan only</source>
        <translation>--compare betrachtet nur einen Plan</translation>
    </message>
    <message>
        <source>--compare and a list make one output only with --json</source>
        <translation>--compare und eine Liste ergeben nur mit --json eine gemeinsame Ausgabe</translation>
    </message>
    <message>
        <source>the changes and the sheets cannot both go to standard output</source>
        <translation>Änderungen und Blätter können nicht beide auf die Standardausgabe</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>Rückgabewerte:</translation>
    </message>
    <message>
        <source>All done.</source>
        <translation>Alles erledigt.</translation>
    </message>
    <message>
        <source>A plan could not be read, or a result not be written.</source>
        <translation>Ein Plan war nicht zu lesen oder ein Ergebnis nicht zu schreiben.</translation>
    </message>
    <message>
        <source>Wrong usage; nothing was done.</source>
        <translation>Falscher Aufruf; nichts wurde getan.</translation>
    </message>
    <message>
        <source>Done, with warnings, and --strict was given.</source>
        <translation>Erledigt, mit Warnungen, und --strict war angegeben.</translation>
    </message>
    <message>
        <source>--compare found changes, and no sheets were to be written.</source>
        <translation>--compare fand Änderungen, und Blätter waren nicht zu schreiben.</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>Writes roads.txt.</source>
        <translation>Schreibt roads.txt.</translation>
    </message>
    <message>
        <source>Writes each into the folder out.</source>
        <translation>Schreibt jeden in den Ordner out.</translation>
    </message>
    <message>
        <source>What could be filtered by?</source>
        <translation>Wonach ließe sich filtern?</translation>
    </message>
    <message>
        <source>Only these sheets.</source>
        <translation>Nur diese Blätter.</translation>
    </message>
    <message>
        <source>Only looks.</source>
        <translation>Sieht nur nach.</translation>
    </message>
    <message>
        <source>What would change?</source>
        <translation>Was würde sich ändern?</translation>
    </message>
    <message>
        <source>--tolerance wants a length such as 0.5, not &apos;%1&apos;</source>
        <translation>--tolerance verlangt eine Länge wie 0.5, nicht „%1“</translation>
    </message>
    <message>
        <source>--tolerance belongs to --compare</source>
        <translation>--tolerance gehört zu --compare</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>weggefallen</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>verschoben</translation>
    </message>
    <message>
        <source>renamed</source>
        <translation>umbenannt</translation>
    </message>
    <message>
        <source>was %1</source>
        <translation>früher %1</translation>
    </message>
    <message>
        <source>by %1</source>
        <translation>um %1</translation>
    </message>
    <message>
        <source>other corners</source>
        <translation>andere Ecken</translation>
    </message>
    <message>
        <source>1 sheet written to standard output</source>
        <translation>1 Blatt auf die Standardausgabe geschrieben</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets written to standard output</source>
        <translation>
            <numerusform>%n Blatt auf die Standardausgabe geschrieben</numerusform>
            <numerusform>%n Blätter auf die Standardausgabe geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>no changes</source>
        <translation>keine Änderungen</translation>
    </message>
    <message>
        <source>%1 compared with %2: %3</source>
        <translation>%1 verglichen mit %2: %3</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Apply the position of each insert to its sheet: insertion point, scale, rotation, mirroring, rows and columns.</source>
        <translation>Auf jedes Blatt die Position seiner Einfügung anwenden: Einfügepunkt, Skalierung, Drehung, Spiegelung, Zeilen und Spalten.</translation>
    </message>
    <message>
        <source>Take sheet numbers from the attribute TAG, not from BL_NR or Bl_Nr.</source>
        <translation>Blattnummern aus dem Attribut TAG nehmen, nicht aus BL_NR oder Bl_Nr.</translation>
    </message>
    <message>
        <source>Read the plan&apos;s texts as NAME (ANSI_1252, UTF-8, ...), whatever it says.</source>
        <translation>Die Texte des Plans als NAME lesen (ANSI_1252, UTF-8 usw.), was immer er angibt.</translation>
    </message>
    <message>
        <source>--encoding does not know &apos;%1&apos;</source>
        <translation>--encoding kennt „%1“ nicht</translation>
    </message>
    <message>
        <source>Write the sheets with all attributes into FILE, an .xlsx, .ods or .csv.</source>
        <translation>Die Blätter mit allen Attributen in DATEI schreiben, eine .xlsx, .ods oder .csv.</translation>
    </message>
    <message>
        <source>--table takes the sheets of one plan only</source>
        <translation>--table nimmt nur die Blätter eines Plans</translation>
    </message>
    <message>
        <source>--table wants a file that ends in .xlsx, .ods or .csv</source>
        <translation>--table braucht eine Datei, die auf .xlsx, .ods oder .csv endet</translation>
    </message>
</context>
<context>
    <name>menuconfig::ConfigurationBar</name>
    <message>
        <source>A configuration needs a name.</source>
        <translation>Eine Konfiguration braucht einen Namen.</translation>
    </message>
    <message>
        <source>“%1” cannot be the name of a configuration, since it has a slash, a backslash or a control character.</source>
        <translation>„%1“ kann keine Konfiguration heißen, denn darin steht ein Schrägstrich, ein umgekehrter Schrägstrich oder ein Steuerzeichen.</translation>
    </message>
    <message>
        <source>There is a configuration called “%1” already.</source>
        <translation>Eine Konfiguration namens „%1“ gibt es schon.</translation>
    </message>
    <message>
        <source>Co&amp;nfiguration:</source>
        <translation>Konfi&amp;guration:</translation>
    </message>
    <message>
        <source>Configuration: %1</source>
        <translation>Konfiguration: %1</translation>
    </message>
    <message>
        <source>&amp;New…</source>
        <translation>&amp;Neu…</translation>
    </message>
    <message>
        <source>&amp;Copy…</source>
        <translation>&amp;Kopieren…</translation>
    </message>
    <message>
        <source>&amp;Rename…</source>
        <translation>&amp;Umbenennen…</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Löschen…</translation>
    </message>
    <message>
        <source>New Configuration</source>
        <translation>Neue Konfiguration</translation>
    </message>
    <message>
        <source>Copy the Configuration</source>
        <translation>Konfiguration kopieren</translation>
    </message>
    <message>
        <source>The configuration could not be copied.</source>
        <translation>Die Konfiguration ließ sich nicht kopieren.</translation>
    </message>
    <message>
        <source>Rename the Configuration</source>
        <translation>Konfiguration umbenennen</translation>
    </message>
    <message>
        <source>The configuration could not be renamed.</source>
        <translation>Die Konfiguration ließ sich nicht umbenennen.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete the configuration “%1”?</source>
        <translation>Die Konfiguration „%1“ löschen?</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>%1 cannot be written; nothing was changed.</source>
        <translation>%1 lässt sich nicht schreiben; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>Name of the configuration:</source>
        <translation>Name der Konfiguration:</translation>
    </message>
</context>
<context>
    <name>menuconfig::ContextMenuPage</name>
    <message>
        <source>Preview of the sector menu</source>
        <translation>Vorschau des Kreismenüs</translation>
    </message>
    <message>
        <source>Sector Menu</source>
        <translation>Kreismenü</translation>
    </message>
    <message>
        <source>Search functions</source>
        <translation>Funktionen suchen</translation>
    </message>
    <message>
        <source>Functions</source>
        <translation>Funktionen</translation>
    </message>
    <message>
        <source>Put into &amp;Menu</source>
        <translation>Ins &amp;Menü aufnehmen</translation>
    </message>
    <message>
        <source>&amp;Functions:</source>
        <translation>&amp;Funktionen:</translation>
    </message>
    <message>
        <source>Slots of the context menu</source>
        <translation>Plätze des Kontextmenüs</translation>
    </message>
    <message>
        <source>Mo&amp;ve Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Empt&amp;y Slot</source>
        <translation>Leerer Pla&amp;tz</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Slo&amp;ts:</source>
        <translation>&amp;Plätze:</translation>
    </message>
    <message>
        <source>Context Menu</source>
        <translation>Kontextmenü</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>Vorschau:</translation>
    </message>
    <message>
        <source>Fill Slots</source>
        <translation>Plätze belegen</translation>
    </message>
    <message>
        <source>Insert Functions</source>
        <translation>Funktionen einfügen</translation>
    </message>
    <message>
        <source>Insert Empty Slot</source>
        <translation>Leeren Platz einfügen</translation>
    </message>
    <message>
        <source>Empty Slots</source>
        <translation>Plätze leeren</translation>
    </message>
    <message>
        <source>Move Slots</source>
        <translation>Plätze verschieben</translation>
    </message>
</context>
<context>
    <name>menuconfig::ImportDialog</name>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>What the import changes</source>
        <translation>Was der Import ändert</translation>
    </message>
    <message>
        <source>Take</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Then</source>
        <translation>Danach</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>Take &amp;all</source>
        <translation>&amp;Alle übernehmen</translation>
    </message>
    <message>
        <source>&amp;Skip all</source>
        <translation>A&amp;lle überspringen</translation>
    </message>
    <message>
        <source>Context menu</source>
        <translation>Kontextmenü</translation>
    </message>
    <message>
        <source>slots: %1</source>
        <translation>Plätze: %1</translation>
    </message>
</context>
<context>
    <name>menuconfig::MenuPreview</name>
    <message>
        <source>Preview of the context menu</source>
        <translation>Vorschau des Kontextmenüs</translation>
    </message>
    <message>
        <source>More than one entry is chosen by the letter: %1</source>
        <translation>Mehr als ein Eintrag wird gewählt mit dem Buchstaben: %1</translation>
    </message>
</context>
<context>
    <name>menuconfig::ShortcutEditor</name>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Type a shortcut, such as Ctrl+K, or record it</source>
        <translation>Tastenkürzel eingeben, etwa Strg+K, oder aufnehmen</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Re&amp;assign</source>
        <translation>&amp;Umverteilen</translation>
    </message>
    <message>
        <source>&amp;Keep both</source>
        <translation>&amp;Beide behalten</translation>
    </message>
    <message>
        <source>Kee&amp;p the old one</source>
        <translation>Altes behalte&amp;n</translation>
    </message>
    <message>
        <source>Shortcut of “%1”</source>
        <translation>Tastenkürzel von „%1“</translation>
    </message>
    <message>
        <source>Choose a function to change its shortcut</source>
        <translation>Zum Ändern eines Tastenkürzels eine Funktion auswählen</translation>
    </message>
    <message>
        <source>Press up to four keys; a pause ends the recording.</source>
        <translation>Bis zu vier Tasten drücken; eine Pause beendet die Aufnahme.</translation>
    </message>
    <message>
        <source>This cannot be read as keys.</source>
        <translation>Das lässt sich nicht als Tasten lesen.</translation>
    </message>
    <message>
        <source>remove the shortcut of “%1”</source>
        <translation>Tastenkürzel von „%1“ entfernen</translation>
    </message>
    <message>
        <source>shortcut of “%1”</source>
        <translation>Tastenkürzel von „%1“</translation>
    </message>
    <message>
        <source>reassign %1</source>
        <translation>%1 umverteilen</translation>
    </message>
    <message>
        <source>Recor&amp;d (F2)</source>
        <translation>Au&amp;fnehmen (F2)</translation>
    </message>
    <message>
        <source>Ass&amp;ign</source>
        <translation>&amp;Zuweisen</translation>
    </message>
    <message>
        <source>S&amp;top recording</source>
        <translation>Au&amp;fnahme beenden</translation>
    </message>
</context>
<context>
    <name>menuconfig::ShortcutModel</name>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Offered</source>
        <translation>Angeboten</translation>
    </message>
</context>
<context>
    <name>menuconfig::ShortcutsPage</name>
    <message>
        <source>Functions and their shortcuts</source>
        <translation>Funktionen und ihre Tastenkürzel</translation>
    </message>
    <message>
        <source>Find by text or keys</source>
        <translation>Nach Text oder Tasten suchen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Find functions by pressing their keys</source>
        <translation>Funktionen finden, indem man ihre Tasten drückt</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>Zu&amp;rücksetzen</translation>
    </message>
    <message>
        <source>&amp;This shortcut</source>
        <translation>&amp;Dieses Tastenkürzel</translation>
    </message>
    <message>
        <source>This &amp;category…</source>
        <translation>Diese &amp;Kategorie…</translation>
    </message>
    <message>
        <source>&amp;Everything…</source>
        <translation>&amp;Alles…</translation>
    </message>
    <message>
        <source>C&amp;hanged only (%1)</source>
        <translation>Nur ge&amp;änderte (%1)</translation>
    </message>
    <message>
        <source>reset a shortcut</source>
        <translation>ein Tastenkürzel zurücksetzen</translation>
    </message>
    <message>
        <source>reset a category</source>
        <translation>eine Kategorie zurücksetzen</translation>
    </message>
    <message>
        <source>reset all shortcuts</source>
        <translation>alle Tastenkürzel zurücksetzen</translation>
    </message>
    <message>
        <source>%1: %2 → %3</source>
        <translation>%1: %2 → %3</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>All of these have their defaults already.</source>
        <translation>Alle diese haben schon ihren Standard.</translation>
    </message>
    <message>
        <source>These shortcuts will change:</source>
        <translation>Diese Tastenkürzel ändern sich:</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Press ke&amp;ys</source>
        <translation>&amp;Tasten drücken</translation>
    </message>
    <message>
        <source>Con&amp;flicts only (%1)</source>
        <translation>Nur Konfl&amp;ikte (%1)</translation>
    </message>
</context>
<context>
    <name>menuconfig::SlotModel</name>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>Slot %1: %2</source>
        <translation>Platz %1: %2</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Move Slots</source>
        <translation>Plätze verschieben</translation>
    </message>
    <message>
        <source>Fill Slots</source>
        <translation>Plätze belegen</translation>
    </message>
    <message>
        <source>Insert Functions</source>
        <translation>Funktionen einfügen</translation>
    </message>
</context>
<context>
    <name>menuconfig::StyleChoice</name>
    <message>
        <source>Sty&amp;le sheet:</source>
        <translation>Stil&amp;vorlage:</translation>
    </message>
    <message>
        <source>none</source>
        <comment>style sheet</comment>
        <translation>keine</translation>
    </message>
</context>
<context>
    <name>menuconfig::TrayModel</name>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Empty Slots</source>
        <translation>Plätze leeren</translation>
    </message>
</context>
<context>
    <name>navcontrols::BlankScreen</name>
    <message>
        <source>Blank screen; any key ends it</source>
        <translation>Schwarzbild; jede Taste beendet es</translation>
    </message>
</context>
<context>
    <name>navcontrols::HotArea</name>
    <message>
        <source>Sheet above: %1</source>
        <translation>Blatt oberhalb: %1</translation>
    </message>
    <message>
        <source>Sheet at the top right: %1</source>
        <translation>Blatt oben rechts: %1</translation>
    </message>
    <message>
        <source>Sheet to the right: %1</source>
        <translation>Blatt rechts: %1</translation>
    </message>
    <message>
        <source>Sheet at the bottom right: %1</source>
        <translation>Blatt unten rechts: %1</translation>
    </message>
    <message>
        <source>Sheet below: %1</source>
        <translation>Blatt unterhalb: %1</translation>
    </message>
    <message>
        <source>Sheet at the bottom left: %1</source>
        <translation>Blatt unten links: %1</translation>
    </message>
    <message>
        <source>Sheet to the left: %1</source>
        <translation>Blatt links: %1</translation>
    </message>
    <message>
        <source>Sheet at the top left: %1</source>
        <translation>Blatt oben links: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n sheets</source>
        <translation>
            <numerusform>%n Blatt</numerusform>
            <numerusform>%n Blätter</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>navcontrols::NorthArrow</name>
    <message>
        <source>North arrow</source>
        <translation>Nordpfeil</translation>
    </message>
    <message>
        <source>Space turns north to the top, the arrow keys turn the view, Enter takes a typed angle.</source>
        <translation>Leertaste dreht Norden nach oben, die Pfeiltasten drehen die Ansicht, die Eingabetaste nimmt einen eingetippten Winkel.</translation>
    </message>
    <message>
        <source>N</source>
        <extracomment>The letter on a north arrow.</extracomment>
        <translation>N</translation>
    </message>
    <message>
        <source>North is at %1. Click to turn it to the top, drag to turn the view, double-click to type an angle.</source>
        <translation>Norden liegt bei %1. Klicken dreht Norden nach oben, Ziehen dreht die Ansicht, nach einem Doppelklick lässt sich ein Winkel eintippen.</translation>
    </message>
    <message>
        <source>This document has no place on the map.</source>
        <translation>Dieses Dokument hat keinen Ort auf der Karte.</translation>
    </message>
</context>
<context>
    <name>navcontrols::PresentationMenu</name>
    <message>
        <source>Presentation</source>
        <translation>Präsentation</translation>
    </message>
    <message>
        <source>Previous view</source>
        <translation>Vorige Ansicht</translation>
    </message>
    <message>
        <source>Stored views</source>
        <translation>Gespeicherte Ansichten</translation>
    </message>
    <message>
        <source>Next view</source>
        <translation>Nächste Ansicht</translation>
    </message>
    <message>
        <source>Play the stored views</source>
        <translation>Gespeicherte Ansichten abspielen</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>Zeitabstand</translation>
    </message>
    <message>
        <source>Seconds from view to view, 1 to 3600</source>
        <translation>Sekunden von Ansicht zu Ansicht, 1 bis 3600</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Blank screen</source>
        <translation>Schwarzbild</translation>
    </message>
    <message>
        <source>&amp;Store This View</source>
        <translation>Diese Ansicht &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Edit Stored Views…</source>
        <translation>Gespeicherte Ansichten &amp;bearbeiten …</translation>
    </message>
</context>
<context>
    <name>navcontrols::ScaleBarWidget</name>
    <message>
        <source>Scale bar</source>
        <translation>Maßstabsleiste</translation>
    </message>
</context>
<context>
    <name>navcontrols::StoredViews</name>
    <message>
        <source>The views that were stored before cannot be read. They are kept in the database as the document &quot;%1&quot;.</source>
        <translation>Die früher gespeicherten Ansichten sind nicht lesbar. Sie bleiben in der Datenbank als Dokument „%1“ erhalten.</translation>
    </message>
</context>
<context>
    <name>navcontrols::StoredViewsDialog</name>
    <message>
        <source>Stored Views</source>
        <translation>Gespeicherte Ansichten</translation>
    </message>
    <message>
        <source>&amp;Add This View</source>
        <translation>Diese Ansicht &amp;hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach u&amp;nten</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
</context>
<context>
    <name>navcontrols::ViewControls</name>
    <message>
        <source>North arrow&apos;s angle</source>
        <translation>Winkel des Nordpfeils</translation>
    </message>
    <message>
        <source>Degrees clockwise from the top</source>
        <translation>Grad im Uhrzeigersinn, von oben aus</translation>
    </message>
</context>
<context>
    <name>navcontrols::ViewMenu</name>
    <message>
        <source>Fold the view menu</source>
        <translation>Ansichtsmenü einklappen</translation>
    </message>
    <message>
        <source>Drag it to another corner of the view, or press Ctrl and an arrow key.</source>
        <translation>Lässt sich in eine andere Ecke der Ansicht ziehen, oder mit Strg und einer Pfeiltaste dorthin bringen.</translation>
    </message>
    <message>
        <source>View menu</source>
        <translation>Ansichtsmenü</translation>
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
        <source>Whole page</source>
        <translation>Ganze Seite</translation>
    </message>
    <message>
        <source>Whole page; with Shift, upright</source>
        <translation>Ganze Seite; mit der Umschalttaste aufrecht</translation>
    </message>
    <message>
        <source>A map scale, such as 1:5000 or 5000</source>
        <translation>Ein Kartenmaßstab, etwa 1:5000 oder 5000</translation>
    </message>
    <message>
        <source>Zoom correction: %1</source>
        <translation>Zoomkorrektur: %1</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Maßstab</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Height above ground, in metres or with km</source>
        <translation>Höhe über Grund, in Metern oder mit km</translation>
    </message>
    <message>
        <source>Field of view</source>
        <translation>Blickwinkel</translation>
    </message>
    <message>
        <source>Full opening angle of the eye, 1 to 179 degrees</source>
        <translation>Voller Öffnungswinkel des Auges, 1 bis 179 Grad</translation>
    </message>
    <message>
        <source>Eye distance</source>
        <translation>Augenabstand</translation>
    </message>
    <message>
        <source>From the eye to the screen, 5 to 800 cm</source>
        <translation>Vom Auge zum Bildschirm, 5 bis 800 cm</translation>
    </message>
    <message>
        <source>Unfold the view menu</source>
        <translation>Ansichtsmenü ausklappen</translation>
    </message>
</context>
</TS>
