<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>TGestureHint</name>
    <message>
        <source>%1 s</source>
        <comment>seconds</comment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 d</source>
        <comment>days</comment>
        <translation>%1 T.</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 Std.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>From</source>
        <comment>first item of a link</comment>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <comment>second item of a link</comment>
        <translation>Nach</translation>
    </message>
</context>
<context>
    <name>TzuDateScaler</name>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Shows less time</source>
        <translation>Zeigt weniger Zeit</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Shows more time</source>
        <translation>Zeigt mehr Zeit</translation>
    </message>
    <message>
        <source>Scroll earlier</source>
        <translation>Früher</translation>
    </message>
    <message>
        <source>Shows earlier times</source>
        <translation>Zeigt frühere Zeiten</translation>
    </message>
    <message>
        <source>Scroll later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Shows later times</source>
        <translation>Zeigt spätere Zeiten</translation>
    </message>
    <message>
        <source>Page earlier</source>
        <translation>Seite davor</translation>
    </message>
    <message>
        <source>Shows the time before</source>
        <translation>Zeigt die Zeit davor</translation>
    </message>
    <message>
        <source>Page later</source>
        <translation>Seite danach</translation>
    </message>
    <message>
        <source>Shows the time after</source>
        <translation>Zeigt die Zeit danach</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Shows the present</source>
        <translation>Zeigt die Gegenwart</translation>
    </message>
</context>
<context>
    <name>TzuDesign</name>
    <message>
        <source>Caption in the header row</source>
        <translation>Beschriftung in der Kopfzeile</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Breite in Pixeln</translation>
    </message>
    <message>
        <source>Content and editor of the cells</source>
        <translation>Inhalt und Eingabefeld der Zellen</translation>
    </message>
    <message>
        <source>A click on the header may sort by the column</source>
        <translation>Ein Klick auf den Kopf darf nach der Spalte sortieren</translation>
    </message>
    <message>
        <source>Sorts by numeric value rather than by text</source>
        <translation>Sortiert nach Zahlenwert statt nach Text</translation>
    </message>
    <message>
        <source>The cells cannot be edited</source>
        <translation>Die Zellen können nicht bearbeitet werden</translation>
    </message>
    <message>
        <source>The column is not shown</source>
        <translation>Die Spalte wird nicht angezeigt</translation>
    </message>
    <message>
        <source>The cell layout of the column&apos;s cells</source>
        <translation>Das Zellenlayout der Zellen in der Spalte</translation>
    </message>
    <message>
        <source>The sub-grid that cells of kind tckSubGrid show</source>
        <translation>Die Untertabelle, die Zellen der Art tckSubGrid zeigen</translation>
    </message>
    <message>
        <source>Shows the expand buttons of the tree</source>
        <translation>Zeigt die Knöpfe zum Auf- und Zuklappen des Baums</translation>
    </message>
    <message>
        <source>Cells show an image of the grid&apos;s image list</source>
        <translation>Zellen zeigen ein Bild aus der Bilderliste der Tabelle</translation>
    </message>
    <message>
        <source>Neighbouring cells with equal content are shown as one</source>
        <translation>Benachbarte Zellen mit gleichem Inhalt erscheinen als eine</translation>
    </message>
    <message>
        <source>By which columns refer to the sub-grid</source>
        <translation>Unter diesem Namen verweisen Spalten auf die Untertabelle</translation>
    </message>
    <message>
        <source>Its columns</source>
        <translation>Ihre Spalten</translation>
    </message>
    <message>
        <source>Has a row of headers</source>
        <translation>Hat eine Kopfzeile</translation>
    </message>
    <message>
        <source>Has the narrow column at the left</source>
        <translation>Hat die schmale Spalte am linken Rand</translation>
    </message>
    <message>
        <source>The last column takes the room that is left</source>
        <translation>Die letzte Spalte füllt den übrigen Platz</translation>
    </message>
    <message>
        <source>By which columns and cells refer to the layout</source>
        <translation>Unter diesem Namen verweisen Spalten und Zellen auf das Layout</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Colour of the text</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>Uses Font rather than the font of the grid</source>
        <translation>Verwendet Font statt der Schrift der Tabelle</translation>
    </message>
    <message>
        <source>Font of the text, when UseFontInfo is set</source>
        <translation>Schrift des Textes, wenn UseFontInfo gesetzt ist</translation>
    </message>
    <message>
        <source>Least width in pixels</source>
        <translation>Mindestbreite in Pixeln</translation>
    </message>
    <message>
        <source>Least height in pixels</source>
        <translation>Mindesthöhe in Pixeln</translation>
    </message>
    <message>
        <source>Wraps the text; the cell grows to fit it</source>
        <translation>Bricht den Text um; die Zelle wächst mit</translation>
    </message>
    <message>
        <source>Text at the right</source>
        <translation>Text rechtsbündig</translation>
    </message>
    <message>
        <source>Text in the middle of the width</source>
        <translation>Text waagerecht zentriert</translation>
    </message>
    <message>
        <source>Text in the middle of the height</source>
        <translation>Text senkrecht zentriert</translation>
    </message>
    <message>
        <source>Text that does not fit ends with an ellipsis</source>
        <translation>Zu langer Text endet mit Auslassungspunkten</translation>
    </message>
    <message>
        <source>Places the text by WindowsFlags</source>
        <translation>Ordnet den Text nach WindowsFlags an</translation>
    </message>
    <message>
        <source>Where the text stands, when WindowsFlagDraw is set</source>
        <translation>Wo der Text steht, wenn WindowsFlagDraw gesetzt ist</translation>
    </message>
    <message>
        <source>Has a frame at the sides in FrameOptions</source>
        <translation>Hat einen Rahmen an den Seiten in FrameOptions</translation>
    </message>
    <message>
        <source>The sides with a frame, when FrameOptionsUse is set</source>
        <translation>Die Seiten mit Rahmen, wenn FrameOptionsUse gesetzt ist</translation>
    </message>
    <message>
        <source>Look of the frame</source>
        <translation>Aussehen des Rahmens</translation>
    </message>
    <message>
        <source>Colour of the frame</source>
        <translation>Farbe des Rahmens</translation>
    </message>
    <message>
        <source>Sample</source>
        <translation>Beispiel</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Planen</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Bauen</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Testen</translation>
    </message>
    <message>
        <source>Deliver</source>
        <translation>Liefern</translation>
    </message>
    <message>
        <source>Early</source>
        <translation>Früh</translation>
    </message>
    <message>
        <source>Late</source>
        <translation>Spät</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>Lang</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kurz</translation>
    </message>
    <message>
        <source>Beside</source>
        <translation>Daneben</translation>
    </message>
    <message>
        <source>Text %1</source>
        <translation>Text %1</translation>
    </message>
    <message>
        <source>Room A</source>
        <translation>Raum A</translation>
    </message>
    <message>
        <source>Room B</source>
        <translation>Raum B</translation>
    </message>
    <message>
        <source>Room C</source>
        <translation>Raum C</translation>
    </message>
    <message>
        <source>First</source>
        <translation>Erster</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>Zweiter</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>Another part</source>
        <translation>Weiterer Teil</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Dritter</translation>
    </message>
    <message>
        <source>No columns yet: see &quot;Columns&quot; in the context menu</source>
        <translation>Noch keine Spalten: siehe „Columns“ im Kontextmenü</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Centred</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <source>At the right</source>
        <translation>Rechtsbündig</translation>
    </message>
    <message>
        <source>Half-way down</source>
        <translation>In halber Höhe</translation>
    </message>
    <message>
        <source>At the bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Words wrapped</source>
        <translation>Mit Zeilenumbruch</translation>
    </message>
    <message>
        <source>Single line</source>
        <translation>Einzeilig</translation>
    </message>
    <message>
        <source>Ellipsis at the end</source>
        <translation>Auslassungspunkte am Ende</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(keine)</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere ...</translation>
    </message>
    <message>
        <source>%1 columns...</source>
        <translation>%1 Spalten ...</translation>
    </message>
    <message>
        <source>Schedule view: columns of times under a time axis</source>
        <translation>Terminansicht: Spalten mit Zeiten unter einer Zeitachse</translation>
    </message>
    <message>
        <source>Shows times as blocks in columns, one column for each resource, room or day, along a time axis. The user moves, stretches and copies them.</source>
        <translation>Zeigt Zeiten als Blöcke in Spalten, je eine für jede Ressource, jeden Raum oder jeden Tag, entlang einer Zeitachse. Der Anwender verschiebt, dehnt und kopiert sie.</translation>
    </message>
    <message>
        <source>Gantt chart: bars on rows beside a tree</source>
        <translation>Gantt-Diagramm: Balken auf Zeilen neben einem Baum</translation>
    </message>
    <message>
        <source>Shows what happens when: bars, milestones and links on the rows of a tree, under a time axis that zooms and scrolls.</source>
        <translation>Zeigt, was wann geschieht: Balken, Meilensteine und Verknüpfungen auf den Zeilen eines Baums, unter einer Zeitachse, die sich zoomen und verschieben lässt.</translation>
    </message>
    <message>
        <source>Time axis that zooms and scrolls</source>
        <translation>Zeitachse, die sich zoomen und verschieben lässt</translation>
    </message>
    <message>
        <source>Shows a range of time with its calendar, in two rows of labels, from milliseconds to centuries.</source>
        <translation>Zeigt einen Zeitraum mit seinem Kalender in zwei Reihen von Beschriftungen, von Millisekunden bis zu Jahrhunderten.</translation>
    </message>
    <message>
        <source>Tree of entities, loaded when needed</source>
        <translation>Baum von Einträgen, die bei Bedarf geladen werden</translation>
    </message>
    <message>
        <source>Shows a hierarchy of entities whose children may be loaded when they are first seen. The user edits, sorts and moves them.</source>
        <translation>Zeigt eine Hierarchie von Einträgen, deren Kinder erst geladen werden können, wenn sie zu sehen sind. Der Anwender bearbeitet, sortiert und verschiebt sie.</translation>
    </message>
    <message>
        <source>Data grid with columns of many kinds</source>
        <translation>Datentabelle mit Spalten vieler Arten</translation>
    </message>
    <message>
        <source>Shows rows of cells in columns of text, check boxes, dates, times, grids and trees. Its columns are edited in the form designer.</source>
        <translation>Zeigt Zeilen von Zellen in Spalten mit Text, Kontrollkästchen, Datums- und Zeitangaben, Tabellen und Bäumen. Ihre Spalten werden im Formular-Designer bearbeitet.</translation>
    </message>
</context>
<context>
    <name>TzuGant</name>
    <message>
        <source>After %1</source>
        <translation>Nach %1</translation>
    </message>
    <message>
        <source>Before %1</source>
        <translation>Vor %1</translation>
    </message>
    <message>
        <source>Gantt chart</source>
        <translation>Gantt-Diagramm</translation>
    </message>
</context>
<context>
    <name>TzuGrid</name>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) cannot be changed.</source>
        <translation>
            <numerusform>%n Zelle lässt sich nicht ändern.</numerusform>
            <numerusform>%n Zellen lassen sich nicht ändern.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) would lie outside of the grid.</source>
        <translation>
            <numerusform>%n Zelle läge außerhalb der Tabelle.</numerusform>
            <numerusform>%n Zellen lägen außerhalb der Tabelle.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) kept the old content: %1</source>
        <translation>
            <numerusform>%n Zelle behielt den alten Inhalt: %1</numerusform>
            <numerusform>%n Zellen behielten den alten Inhalt: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no date. An example: %2</source>
        <translation>„%1“ ist kein Datum. Ein Beispiel: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time of day. An example: %2</source>
        <translation>„%1“ ist keine Uhrzeit. Ein Beispiel: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not fit here.</source>
        <translation>„%1“ passt hier nicht.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is none of the choices.</source>
        <translation>„%1“ steht nicht zur Auswahl.</translation>
    </message>
    <message>
        <source>This change is not allowed.</source>
        <translation>Diese Änderung ist nicht erlaubt.</translation>
    </message>
</context>
<context>
    <name>TzuPrinting</name>
    <message>
        <source>The time to print is empty</source>
        <translation>Der zu druckende Zeitraum ist leer</translation>
    </message>
    <message>
        <source>The time axis has no scale</source>
        <translation>Die Zeitachse hat keinen Maßstab</translation>
    </message>
    <message>
        <source>The document cannot be given bookmarks</source>
        <translation>Das Dokument kann keine Lesezeichen bekommen</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>There are no such pages</source>
        <translation>Diese Seiten gibt es nicht</translation>
    </message>
    <message>
        <source>The printer cannot be used</source>
        <translation>Der Drucker ist nicht verfügbar</translation>
    </message>
    <message>
        <source>The printer takes no further page</source>
        <translation>Der Drucker nimmt keine weitere Seite an</translation>
    </message>
    <message>
        <source>The printer could not finish</source>
        <translation>Der Drucker konnte den Auftrag nicht beenden</translation>
    </message>
    <message>
        <source>The document takes no further page</source>
        <translation>Das Dokument nimmt keine weitere Seite auf</translation>
    </message>
    <message>
        <source>The picture is too large</source>
        <translation>Das Bild ist zu groß</translation>
    </message>
    <message>
        <source>There is nothing to print</source>
        <translation>Es gibt nichts zu drucken</translation>
    </message>
    <message>
        <source>The time to print is too long at this scale</source>
        <translation>Der zu druckende Zeitraum ist für diesen Maßstab zu lang</translation>
    </message>
    <message>
        <source>There is too much to print at once</source>
        <translation>Es ist zu viel für einen Druck</translation>
    </message>
    <message>
        <source>The margins leave no room on the paper</source>
        <translation>Die Ränder lassen auf dem Papier keinen Platz</translation>
    </message>
    <message>
        <source>The paper has no room beside labels, axis and headings</source>
        <translation>Das Papier bietet neben Beschriftung, Achse und Köpfen keinen Platz</translation>
    </message>
    <message>
        <source>There is no printer</source>
        <translation>Es gibt keinen Drucker</translation>
    </message>
    <message>
        <source>Cannot keep the pages until they are printed: %1</source>
        <translation>Die Seiten können bis zum Druck nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>it is incomplete</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
</context>
<context>
    <name>TzuSchema</name>
    <message>
        <source>Schedule</source>
        <translation>Terminansicht</translation>
    </message>
</context>
<context>
    <name>korvane::TBabGridFindBar</name>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Vorherige Stelle</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Nächste Stelle</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Went on from the other end</source>
        <translation>Am anderen Ende weitergesucht</translation>
    </message>
</context>
<context>
    <name>korvane::TCollectionEditor</name>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Sub-grids</source>
        <translation>Untertabellen</translation>
    </message>
    <message>
        <source>Cell layouts</source>
        <translation>Zellenlayouts</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>Vorschau:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Columns of %1</source>
        <translation>Spalten von %1</translation>
    </message>
    <message>
        <source>(unnamed)</source>
        <translation>(ohne Namen)</translation>
    </message>
</context>
<context>
    <name>korvane::TNameListEditor</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Offered:</source>
        <translation>&amp;Angebot:</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>&amp;Chosen:</source>
        <translation>A&amp;usgewählt:</translation>
    </message>
</context>
<context>
    <name>korvane::TSchemaColumnScroller</name>
    <message>
        <source>Previous column</source>
        <translation>Vorherige Spalte</translation>
    </message>
    <message>
        <source>Next column</source>
        <translation>Nächste Spalte</translation>
    </message>
</context>
<context>
    <name>korvane::TTaskMenu</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Sub-grids</source>
        <translation>Untertabellen</translation>
    </message>
    <message>
        <source>Cell layouts</source>
        <translation>Zellenlayouts</translation>
    </message>
    <message>
        <source>Grid columns</source>
        <translation>Tabellenspalten</translation>
    </message>
    <message>
        <source>Grid sub-grids</source>
        <translation>Untertabellen der Tabelle</translation>
    </message>
    <message>
        <source>Grid cell layouts</source>
        <translation>Zellenlayouts der Tabelle</translation>
    </message>
    <message>
        <source>Images of %1</source>
        <translation>Bilder von %1</translation>
    </message>
    <message>
        <source>Part of the name, a file, or an icon of the theme</source>
        <translation>Teil des Namens, eine Datei oder ein Symbol des Themas</translation>
    </message>
    <message>
        <source>A menu, or actions; - is a line</source>
        <translation>Ein Menü oder Aktionen; - ist eine Linie</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Menu: %1</source>
        <translation>Menü: %1</translation>
    </message>
</context>
<context>
    <name>korvane::TTreeCaptionEdit</name>
    <message>
        <source>A caption has at most %1 characters; this text has %2.</source>
        <translation>Eine Beschriftung hat höchstens %1 Zeichen; dieser Text hat %2.</translation>
    </message>
</context>
<context>
    <name>korvane::TXYSizer</name>
    <message>
        <source>Resize scale and header</source>
        <translation>Größe von Achse und Kopf ändern</translation>
    </message>
</context>
<context>
    <name>korvane::TzuGridColumnMenu</name>
    <message>
        <source>Sort &amp;Ascending</source>
        <translation>&amp;Aufsteigend sortieren</translation>
    </message>
    <message>
        <source>Sort &amp;Descending</source>
        <translation>A&amp;bsteigend sortieren</translation>
    </message>
    <message>
        <source>&amp;No Sorting</source>
        <translation>&amp;Nicht sortieren</translation>
    </message>
    <message>
        <source>&amp;Fit Width</source>
        <translation>Breite an&amp;passen</translation>
    </message>
    <message>
        <source>Fit A&amp;ll Columns</source>
        <translation>A&amp;lle Spalten anpassen</translation>
    </message>
    <message>
        <source>&amp;Wider</source>
        <translation>Breit&amp;er</translation>
    </message>
    <message>
        <source>Na&amp;rrower</source>
        <translation>&amp;Schmaler</translation>
    </message>
    <message>
        <source>Move Le&amp;ft</source>
        <translation>Nach l&amp;inks</translation>
    </message>
    <message>
        <source>Move Ri&amp;ght</source>
        <translation>Nach &amp;rechts</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>Ausblen&amp;den</translation>
    </message>
    <message>
        <source>&amp;Columns</source>
        <translation>Spal&amp;ten</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
</context>
<context>
    <name>korvane::TzuPrintPreview</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>korvane::TzuTreePopup</name>
    <message>
        <source>E&amp;xpand All</source>
        <translation>Alle &amp;aufklappen</translation>
    </message>
    <message>
        <source>&amp;Collapse All</source>
        <translation>Alle &amp;zuklappen</translation>
    </message>
    <message>
        <source>Expand to &amp;Level</source>
        <translation>Bis &amp;Ebene aufklappen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Sortieren</translation>
    </message>
    <message>
        <source>&amp;Ascending</source>
        <translation>&amp;Aufsteigend</translation>
    </message>
    <message>
        <source>&amp;Descending</source>
        <translation>A&amp;bsteigend</translation>
    </message>
    <message>
        <source>All Levels A&amp;scending</source>
        <translation>Alle Ebenen a&amp;ufsteigend</translation>
    </message>
    <message>
        <source>All Levels D&amp;escending</source>
        <translation>Alle Ebenen ab&amp;steigend</translation>
    </message>
    <message>
        <source>Level &amp;%1</source>
        <translation>Ebene &amp;%1</translation>
    </message>
</context>
<context>
    <name>korvane::TzuTree_ComBasic</name>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
</context>
</TS>
