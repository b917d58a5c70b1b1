<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Planner</name>
    <message>
        <source>This series has no UID of its own, so that single occurrences cannot be told from others. The whole series can be changed.</source>
        <translation>Diese Serie hat keine eigene UID, einzelne Termine lassen sich deshalb nicht unterscheiden. Die ganze Serie kann geändert werden.</translation>
    </message>
    <message>
        <source>This series cannot be cut in two here. It can be changed as a whole.</source>
        <translation>Diese Serie lässt sich hier nicht teilen. Sie kann als Ganzes geändert werden.</translation>
    </message>
    <message>
        <source>One occurrence stays in the calendar of its series. The whole series can be moved to another one.</source>
        <translation>Ein einzelner Termin bleibt im Kalender seiner Serie. Die ganze Serie kann in einen anderen verschoben werden.</translation>
    </message>
    <message>
        <source>That calendar has this event already.</source>
        <translation>Dieser Kalender enthält den Termin schon.</translation>
    </message>
    <message>
        <source>%1 is not a date</source>
        <translation>%1 ist kein Datum</translation>
    </message>
    <message>
        <source>the time zone &quot;%1&quot; is not known; its times are taken as local ones</source>
        <translation>die Zeitzone „%1“ ist unbekannt; ihre Zeiten gelten als Ortszeiten</translation>
    </message>
    <message>
        <source>an event has more than one start; the first one holds</source>
        <translation>ein Termin hat mehr als einen Anfang; der erste gilt</translation>
    </message>
    <message>
        <source>an event of more than 100 years is cut</source>
        <translation>ein Termin von mehr als 100 Jahren wird gekürzt</translation>
    </message>
    <message>
        <source>an event ends before it starts</source>
        <translation>ein Termin endet vor seinem Anfang</translation>
    </message>
    <message>
        <source>an event that cannot be read</source>
        <translation>ein unlesbarer Termin</translation>
    </message>
    <message>
        <source>a calendar is text, and this is none</source>
        <translation>ein Kalender ist Text, und dies ist keiner</translation>
    </message>
    <message>
        <source>a time zone that cannot be read</source>
        <translation>eine unlesbare Zeitzone</translation>
    </message>
    <message>
        <source>The rule of this series names the times of day. Single occurrences can be moved.</source>
        <translation>Die Regel dieser Serie nennt die Uhrzeiten. Einzelne Termine können verschoben werden.</translation>
    </message>
    <message>
        <source>The rule of this series names the days. Single occurrences can be moved to others.</source>
        <translation>Die Regel dieser Serie nennt die Tage. Einzelne Termine können auf andere verschoben werden.</translation>
    </message>
    <message>
        <source>text outside the calendars is ignored</source>
        <translation>Text außerhalb der Kalender wird übergangen</translation>
    </message>
    <message>
        <source>the file ends within %1</source>
        <translation>die Datei endet mitten in %1</translation>
    </message>
    <message>
        <source>there is no calendar in this file</source>
        <translation>die Datei enthält keinen Kalender</translation>
    </message>
    <message>
        <source>a calendar within a calendar</source>
        <translation>ein Kalender in einem Kalender</translation>
    </message>
    <message>
        <source>components nested too deep</source>
        <translation>zu tief geschachtelte Komponenten</translation>
    </message>
    <message>
        <source>%1 outside a calendar</source>
        <translation>%1 außerhalb eines Kalenders</translation>
    </message>
    <message>
        <source>END:%1 without its BEGIN is ignored</source>
        <translation>END:%1 ohne BEGIN wird übergangen</translation>
    </message>
    <message>
        <source>%1 has no end</source>
        <translation>%1 hat kein Ende</translation>
    </message>
    <message>
        <source>not enough memory for this file</source>
        <translation>zu wenig Arbeitsspeicher für diese Datei</translation>
    </message>
    <message>
        <source>a day without a date</source>
        <translation>ein Tag ohne Datum</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no start and is left out</source>
        <translation>„%1“ hat keinen Anfang und wird ausgelassen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no duration</source>
        <translation>„%1“ hat keine Dauer</translation>
    </message>
    <message>
        <source>not a conference programme</source>
        <translation>kein Konferenzprogramm</translation>
    </message>
    <message>
        <source>a programme without days</source>
        <translation>ein Programm ohne Tage</translation>
    </message>
    <message>
        <source>what follows the programme is ignored</source>
        <translation>was auf das Programm folgt, wird übergangen</translation>
    </message>
    <message>
        <source>Calendar %1</source>
        <translation>Kalender %1</translation>
    </message>
    <message>
        <source>(no place)</source>
        <translation>(ohne Ort)</translation>
    </message>
    <message>
        <source>dddd, d MMMM yyyy</source>
        <translation>dddd, d. MMMM yyyy</translation>
    </message>
    <message>
        <source>dddd, d MMMM yyyy, </source>
        <translation>dddd, d. MMMM yyyy, </translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <translation>d. MMMM yyyy</translation>
    </message>
    <message>
        <source>ddd d MMM</source>
        <translation>ddd, d. MMM</translation>
    </message>
    <message>
        <source>(nothing)</source>
        <translation>(nichts)</translation>
    </message>
    <message>
        <source>d mmm</source>
        <translation>d. mmm</translation>
    </message>
    <message>
        <source>ddd d</source>
        <translation>ddd d.</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy, hh:nn:ss</source>
        <translation>ddd, d. mmm yyyy, hh:nn:ss</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy, hh:nn</source>
        <translation>ddd, d. mmm yyyy, hh:nn</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy</source>
        <translation>ddd, d. mmm yyyy</translation>
    </message>
    <message>
        <source>d mmm yyyy</source>
        <translation>d. mmm yyyy</translation>
    </message>
    <message>
        <source>mmmm yyyy</source>
        <translation>mmmm yyyy</translation>
    </message>
    <message>
        <source>mmm yyyy</source>
        <translation>mmm yyyy</translation>
    </message>
    <message>
        <source>Print the plan&apos;s figures as JSON and exit.</source>
        <translation>Kennzahlen des Plans als JSON ausgeben und beenden.</translation>
    </message>
    <message>
        <source>Write the plan as project XML (.xml or .xml.gz) and exit.</source>
        <translation>Plan als Projekt-XML (.xml oder .xml.gz) schreiben und beenden.</translation>
    </message>
    <message>
        <source>output</source>
        <comment>value of an option</comment>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Draw the plan into a .png, .pdf or .svg file and exit.</source>
        <translation>Plan in eine .png-, .pdf- oder .svg-Datei zeichnen und beenden.</translation>
    </message>
    <message>
        <source>picture</source>
        <comment>value of an option</comment>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Size of the picture in pixels, by default 1400x900.</source>
        <translation>Größe des Bildes in Pixeln, normalerweise 1400x900.</translation>
    </message>
    <message>
        <source>What the rows of picture or print are: tasks or resources; by default tasks for plans, resources for timetables and job traces.</source>
        <translation>Was die Zeilen von Bild oder Druck sind: tasks (Vorgänge) oder resources (Ressourcen); normalerweise Vorgänge bei Plänen, Ressourcen bei Fahrplänen und Auftragsprotokollen.</translation>
    </message>
    <message>
        <source>kind</source>
        <comment>value of an option</comment>
        <translation>Art</translation>
    </message>
    <message>
        <source>Show the table of tasks beside the chart in picture or print.</source>
        <translation>In Bild oder Druck die Vorgangstabelle neben dem Diagramm zeigen.</translation>
    </message>
    <message>
        <source>First date or date-time in the picture, or of the occurrences to count (ISO 8601).</source>
        <translation>Erstes Datum oder erster Zeitpunkt im Bild oder der zu zählenden Termine (ISO 8601).</translation>
    </message>
    <message>
        <source>date</source>
        <comment>value of an option</comment>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Where the picture, or what is counted, ends (ISO 8601).</source>
        <translation>Wo das Bild oder die Zählung endet (ISO 8601).</translation>
    </message>
    <message>
        <source>Device pixels per pixel of a .png picture.</source>
        <translation>Gerätepixel je Pixel eines .png-Bildes.</translation>
    </message>
    <message>
        <source>ratio</source>
        <comment>value of an option</comment>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>Print the plan or calendar into a .pdf file, or into .svg or .png files, one for each page, and exit.</source>
        <translation>Plan oder Kalender in eine .pdf-Datei oder in .svg- oder .png-Dateien drucken, eine je Seite, und beenden.</translation>
    </message>
    <message>
        <source>pages</source>
        <comment>value of an option</comment>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Paper to print on: A0 to A6, letter, legal, tabloid, or WIDTHxHEIGHT in millimetres; by default A4.</source>
        <translation>Papier für den Druck: A0 bis A6, letter, legal, tabloid oder BREITExHÖHE in Millimetern; normalerweise A4.</translation>
    </message>
    <message>
        <source>size</source>
        <comment>value of an option</comment>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Print on paper turned on its side.</source>
        <translation>Im Querformat drucken.</translation>
    </message>
    <message>
        <source>Pages to print on at most, ACROSSxDOWN; 0 for as many as it takes, by default 1x0 for plans, 0x1 for calendars.</source>
        <translation>Höchstzahl der Seiten, NEBENxUNTEREINANDER; 0 für so viele wie nötig, normalerweise 1x0 bei Plänen, 0x1 bei Kalendern.</translation>
    </message>
    <message>
        <source>What a row stands for. Timetables (a folder or .zip of GTFS tables): block, route; by default blocks where trips name any. Job traces (.swf): node (default), partition, queue, user, group.</source>
        <translation>Wofür eine Zeile steht. Fahrpläne (Ordner oder .zip mit GTFS-Tabellen): block (Umlauf), route (Linie); normalerweise Umläufe, wenn Fahrten welche nennen. Auftragsprotokolle (.swf): node (Knoten, Vorgabe), partition, queue (Warteschlange), user (Benutzer), group (Gruppe).</translation>
    </message>
    <message>
        <source>The service day of a timetable (ISO 8601). By default the week in which most trips run is shown, every trip once, on its first day there.</source>
        <translation>Der Betriebstag eines Fahrplans (ISO 8601). Normalerweise wird die Woche mit den meisten Fahrten gezeigt, jede Fahrt einmal an ihrem ersten Tag darin.</translation>
    </message>
    <message>
        <source>Language of texts, dates and numbers: %1; by default the user&apos;s.</source>
        <translation>Sprache von Texten, Daten und Zahlen: %1; normalerweise die des Benutzers.</translation>
    </message>
    <message>
        <source>language</source>
        <comment>value of an option</comment>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Use dark colours.</source>
        <translation>Dunkle Farben verwenden.</translation>
    </message>
    <message>
        <source>Shows project plans, timetables and job traces as Gantt charts, calendars and conference programmes as schedules.</source>
        <translation>Zeigt Projektpläne, Fahrpläne und Auftragsprotokolle als Gantt-Diagramme, Kalender und Konferenzprogramme als Terminansichten.</translation>
    </message>
    <message>
        <source>The plan to open: a file, or a folder of GTFS tables.</source>
        <translation>Der zu öffnende Plan: eine Datei oder ein Ordner mit GTFS-Tabellen.</translation>
    </message>
    <message>
        <source>--lang needs one of %1</source>
        <translation>--lang braucht eines von %1</translation>
    </message>
    <message>
        <source>only one file can be opened</source>
        <translation>es kann nur eine Datei geöffnet werden</translation>
    </message>
    <message>
        <source>--render needs a file</source>
        <translation>--render braucht eine Datei</translation>
    </message>
    <message>
        <source>--print needs a file</source>
        <translation>--print braucht eine Datei</translation>
    </message>
    <message>
        <source>--convert needs a file</source>
        <translation>--convert braucht eine Datei</translation>
    </message>
    <message>
        <source>--summary needs a file</source>
        <translation>--summary braucht eine Datei</translation>
    </message>
    <message>
        <source>--rows needs one of %1</source>
        <translation>--rows braucht eines von %1</translation>
    </message>
    <message>
        <source>--day needs a date like 2026-11-02, from 1900 to 4000</source>
        <translation>--day braucht ein Datum wie 2026-11-02, von 1900 bis 4000</translation>
    </message>
    <message>
        <source>--render needs a .png, .pdf or .svg file to write</source>
        <translation>--render braucht eine .png-, .pdf- oder .svg-Datei als Ziel</translation>
    </message>
    <message>
        <source>--table goes with --view tasks</source>
        <translation>--table gehört zu --view tasks</translation>
    </message>
    <message>
        <source>--size needs WIDTHxHEIGHT, each from %1 to %2</source>
        <translation>--size braucht BREITExHÖHE, jeweils von %1 bis %2</translation>
    </message>
    <message>
        <source>--dpr needs a number from %1 to %2</source>
        <translation>--dpr braucht eine Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>the picture would be too large</source>
        <translation>das Bild würde zu groß</translation>
    </message>
    <message>
        <source>--view needs tasks or resources</source>
        <translation>--view braucht tasks oder resources</translation>
    </message>
    <message>
        <source>--print needs a .pdf, .svg or .png file to write</source>
        <translation>--print braucht eine .pdf-, .svg- oder .png-Datei als Ziel</translation>
    </message>
    <message>
        <source>--paper needs A0 to A6, letter, legal, tabloid, or WIDTHxHEIGHT in millimetres, each from 50 to 5000</source>
        <translation>--paper braucht A0 bis A6, letter, legal, tabloid oder BREITExHÖHE in Millimetern, jeweils von 50 bis 5000</translation>
    </message>
    <message>
        <source>--fit needs ACROSSxDOWN, each from 0 to %1</source>
        <translation>--fit braucht NEBENxUNTEREINANDER, jeweils von 0 bis %1</translation>
    </message>
    <message>
        <source>--%1 needs a date like 2026-11-02, from 1900 to 4000</source>
        <translation>--%1 braucht ein Datum wie 2026-11-02, von 1900 bis 4000</translation>
    </message>
    <message>
        <source>--from must lie before --to</source>
        <translation>--from muss vor --to liegen</translation>
    </message>
    <message>
        <source>there is no display; --render and --summary need none</source>
        <translation>keine Anzeige vorhanden; --render und --summary brauchen keine</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy  hh:nn:ss</source>
        <translation>ddd, d. mmm yyyy  hh:nn:ss</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy  hh:nn</source>
        <translation>ddd, d. mmm yyyy  hh:nn</translation>
    </message>
    <message numerus="yes">
        <source>%Ln row(s)</source>
        <translation>
            <numerusform>%Ln Zeile</numerusform>
            <numerusform>%Ln Zeilen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s)</source>
        <translation>
            <numerusform>%Ln Balken</numerusform>
            <numerusform>%Ln Balken</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln task(s)</source>
        <translation>
            <numerusform>%Ln Vorgang</numerusform>
            <numerusform>%Ln Vorgänge</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln milestone(s)</source>
        <translation>
            <numerusform>%Ln Meilenstein</numerusform>
            <numerusform>%Ln Meilensteine</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln link(s)</source>
        <translation>
            <numerusform>%Ln Verknüpfung</numerusform>
            <numerusform>%Ln Verknüpfungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln resource(s)</source>
        <translation>
            <numerusform>%Ln Ressource</numerusform>
            <numerusform>%Ln Ressourcen</numerusform>
        </translation>
    </message>
    <message>
        <source>pictures are .png, .pdf or .svg files</source>
        <translation>Bilder sind .png-, .pdf- oder .svg-Dateien</translation>
    </message>
    <message>
        <source>the picture could not be drawn</source>
        <translation>das Bild konnte nicht gezeichnet werden</translation>
    </message>
    <message>
        <source>PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)</source>
        <translation>PNG-Bild (*.png);;PDF-Dokument (*.pdf);;SVG-Zeichnung (*.svg)</translation>
    </message>
    <message>
        <source>Partition %1</source>
        <translation>Partition %1</translation>
    </message>
    <message>
        <source>No partition</source>
        <translation>Ohne Partition</translation>
    </message>
    <message>
        <source>partition %1</source>
        <translation>Partition %1</translation>
    </message>
    <message>
        <source>Queue %1</source>
        <translation>Warteschlange %1</translation>
    </message>
    <message>
        <source>No queue</source>
        <translation>Ohne Warteschlange</translation>
    </message>
    <message>
        <source>queue %1</source>
        <translation>Warteschlange %1</translation>
    </message>
    <message>
        <source>User %1</source>
        <translation>Benutzer %1</translation>
    </message>
    <message>
        <source>No user</source>
        <translation>Ohne Benutzer</translation>
    </message>
    <message>
        <source>user %1</source>
        <translation>Benutzer %1</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>No group</source>
        <translation>Ohne Gruppe</translation>
    </message>
    <message>
        <source>group %1</source>
        <translation>Gruppe %1</translation>
    </message>
    <message>
        <source>waited %1 s</source>
        <translation>%1 s gewartet</translation>
    </message>
    <message>
        <source>the trace has no jobs that can be shown</source>
        <translation>das Protokoll enthält keine darstellbaren Aufträge</translation>
    </message>
    <message>
        <source>a row of a job trace is a node, partition, queue, user or group, not a %1</source>
        <translation>eine Zeile eines Auftragsprotokolls ist node, partition, queue, user oder group, nicht %1</translation>
    </message>
    <message>
        <source>too many nodes to have a row each</source>
        <translation>zu viele Knoten für je eine Zeile</translation>
    </message>
    <message>
        <source>the line is too long for a job trace</source>
        <translation>die Zeile ist für ein Auftragsprotokoll zu lang</translation>
    </message>
    <message>
        <source>The line is not one of %1 numbers; it is ignored.</source>
        <translation>Die Zeile besteht nicht aus %1 Zahlen; sie wird übergangen.</translation>
    </message>
    <message>
        <source>The job has no run time; it is left out.</source>
        <translation>Der Auftrag hat keine Laufzeit; er wird ausgelassen.</translation>
    </message>
    <message>
        <source>The job&apos;s times make no sense; it is left out.</source>
        <translation>Die Zeiten des Auftrags ergeben keinen Sinn; er wird ausgelassen.</translation>
    </message>
    <message>
        <source>more than %1 jobs</source>
        <translation>mehr als %1 Aufträge</translation>
    </message>
    <message>
        <source>Node %1</source>
        <translation>Knoten %1</translation>
    </message>
    <message>
        <source>Job %1</source>
        <translation>Auftrag %1</translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n Prozessor</numerusform>
            <numerusform>%n Prozessoren</numerusform>
        </translation>
    </message>
    <message>
        <source>Job trace</source>
        <translation>Auftragsprotokoll</translation>
    </message>
    <message>
        <source>the table is empty</source>
        <translation>die Tabelle ist leer</translation>
    </message>
    <message>
        <source>there is no column %1</source>
        <translation>es gibt keine Spalte %1</translation>
    </message>
    <message>
        <source>the record is longer than %1 bytes; is a quote missing?</source>
        <translation>der Datensatz ist länger als %1 Bytes; fehlt ein Anführungszeichen?</translation>
    </message>
    <message>
        <source>the record has more than %1 fields</source>
        <translation>der Datensatz hat mehr als %1 Felder</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>a folder, not a file</source>
        <translation>ein Ordner, keine Datei</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>The calendar has no working day; all days count.</source>
        <translation>Der Kalender hat keinen Arbeitstag; alle Tage zählen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a year.</source>
        <translation>„%1“ ist kein Jahr.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a month.</source>
        <translation>„%1“ ist kein Monat.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day.</source>
        <translation>„%1“ ist kein Tag.</translation>
    </message>
    <message>
        <source>the root element is not a &lt;project&gt; without a namespace</source>
        <translation>das Wurzelelement ist kein &lt;project&gt; ohne Namensraum</translation>
    </message>
    <message>
        <source>What follows the end of the project is not well-formed; it is ignored.</source>
        <translation>Was auf das Ende des Projekts folgt, ist nicht wohlgeformt; es wird übergangen.</translation>
    </message>
    <message>
        <source>no project plan: there is no &lt;tasks&gt; element</source>
        <translation>kein Projektplan: das Element &lt;tasks&gt; fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a duration.</source>
        <translation>„%1“ ist keine Dauer.</translation>
    </message>
    <message>
        <source>A link has no known type; it is taken as finish to start.</source>
        <translation>Eine Verknüpfung hat keine bekannte Art; sie gilt als Ende-Anfang.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a lag.</source>
        <translation>„%1“ ist kein Zeitabstand.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a load.</source>
        <translation>„%1“ ist keine Auslastung.</translation>
    </message>
    <message>
        <source>decompression cannot be started</source>
        <translation>das Entpacken kann nicht beginnen</translation>
    </message>
    <message>
        <source>the compressed data ends too early</source>
        <translation>die gepackten Daten enden zu früh</translation>
    </message>
    <message>
        <source>the compressed data is damaged</source>
        <translation>die gepackten Daten sind beschädigt</translation>
    </message>
    <message>
        <source>more than %1 MB after decompression</source>
        <translation>entpackt mehr als %1 MB</translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>hour</source>
        <translation>Stunde</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>Minuten</translation>
    </message>
    <message>
        <source>minute</source>
        <translation>Minute</translation>
    </message>
    <message>
        <source>elapsed days</source>
        <translation>Kalendertage</translation>
    </message>
    <message>
        <source>elapsed day</source>
        <translation>Kalendertag</translation>
    </message>
    <message>
        <source>elapsed hours</source>
        <translation>Kalenderstunden</translation>
    </message>
    <message>
        <source>elapsed hour</source>
        <translation>Kalenderstunde</translation>
    </message>
    <message>
        <source>elapsed minutes</source>
        <translation>Kalenderminuten</translation>
    </message>
    <message>
        <source>elapsed minute</source>
        <translation>Kalenderminute</translation>
    </message>
    <message>
        <source>elapsed %</source>
        <translation>% Kalenderzeit</translation>
    </message>
    <message>
        <source>Finish to start</source>
        <translation>Ende-Anfang</translation>
    </message>
    <message>
        <source>Start to start</source>
        <translation>Anfang-Anfang</translation>
    </message>
    <message>
        <source>Finish to finish</source>
        <translation>Ende-Ende</translation>
    </message>
    <message>
        <source>Start to finish</source>
        <translation>Anfang-Ende</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day type.</source>
        <translation>„%1“ ist keine Art von Tag.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a recurrence.</source>
        <translation>„%1“ ist keine Wiederholung.</translation>
    </message>
    <message>
        <source>the root element is &lt;%1&gt;, not &lt;Project&gt;</source>
        <translation>das Wurzelelement ist &lt;%1&gt;, nicht &lt;Project&gt;</translation>
    </message>
    <message>
        <source>another schema: the namespace is &quot;%1&quot;, not &quot;%2&quot;</source>
        <translation>ein anderes Schema: der Namensraum ist „%1“, nicht „%2“</translation>
    </message>
    <message>
        <source>no project plan: there is no &lt;Tasks&gt; element</source>
        <translation>kein Projektplan: das Element &lt;Tasks&gt; fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an outline level.</source>
        <translation>„%1“ ist keine Gliederungsebene.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a baseline number.</source>
        <translation>„%1“ ist keine Basisplan-Nummer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a type of link; it is taken as finish to start.</source>
        <translation>„%1“ ist keine Art von Verknüpfung; sie gilt als Ende-Anfang.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a lag format.</source>
        <translation>„%1“ ist kein Format eines Zeitabstands.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of units.</source>
        <translation>„%1“ ist keine Anzahl von Einheiten.</translation>
    </message>
    <message>
        <source>Project XML</source>
        <translation>Projekt-XML</translation>
    </message>
    <message>
        <source>what the plan was read from is damaged</source>
        <translation>die Quelle des Plans ist beschädigt</translation>
    </message>
    <message>
        <source>not everything could be written; the disk may be full</source>
        <translation>nicht alles konnte geschrieben werden; vielleicht ist der Datenträger voll</translation>
    </message>
    <message>
        <source>without a name</source>
        <translation>ohne Namen</translation>
    </message>
    <message>
        <source>none</source>
        <comment>no UID</comment>
        <translation>keine</translation>
    </message>
    <message>
        <source>The project name has %1 characters; the first %2 are kept.</source>
        <translation>Der Projektname hat %1 Zeichen; die ersten %2 bleiben.</translation>
    </message>
    <message>
        <source>Around the clock</source>
        <translation>Rund um die Uhr</translation>
    </message>
    <message>
        <source>more than %1 characters of names and notes</source>
        <translation>mehr als %1 Zeichen in Namen und Notizen</translation>
    </message>
    <message>
        <source>more than %1 tasks</source>
        <translation>mehr als %1 Vorgänge</translation>
    </message>
    <message>
        <source>The task name has %1 characters; the first %2 are kept.</source>
        <translation>Der Vorgangsname hat %1 Zeichen; die ersten %2 bleiben.</translation>
    </message>
    <message>
        <source>Task %1 has no usable UID.</source>
        <translation>Vorgang %1 hat keine brauchbare UID.</translation>
    </message>
    <message>
        <source>Task UID %1 is used again by %2; links go to its first task.</source>
        <translation>Vorgangs-UID %1 wird von %2 noch einmal verwendet; Verknüpfungen führen zum ersten Vorgang.</translation>
    </message>
    <message>
        <source>The outline has more than %1 levels; deeper tasks are shown at that level.</source>
        <translation>Die Gliederung hat mehr als %1 Ebenen; tiefere Vorgänge stehen auf dieser Ebene.</translation>
    </message>
    <message>
        <source>The outline level jumps from %1 to %2; task %3 is shown at level %4.</source>
        <translation>Die Gliederungsebene springt von %1 auf %2; Vorgang %3 steht auf Ebene %4.</translation>
    </message>
    <message>
        <source>Task %1 finishes before it starts; it is shown from %2 to %3.</source>
        <translation>Vorgang %1 endet vor seinem Anfang; er wird von %2 bis %3 gezeigt.</translation>
    </message>
    <message>
        <source>The note has %1 characters; the first %2 are kept.</source>
        <translation>Die Notiz hat %1 Zeichen; die ersten %2 bleiben.</translation>
    </message>
    <message>
        <source>more than %1 links</source>
        <translation>mehr als %1 Verknüpfungen</translation>
    </message>
    <message>
        <source>more than %1 resources</source>
        <translation>mehr als %1 Ressourcen</translation>
    </message>
    <message>
        <source>The resource name has %1 characters; the first %2 are kept.</source>
        <translation>Der Ressourcenname hat %1 Zeichen; die ersten %2 bleiben.</translation>
    </message>
    <message>
        <source>Resource UID %1 is used again by %2.</source>
        <translation>Ressourcen-UID %1 wird von %2 noch einmal verwendet.</translation>
    </message>
    <message>
        <source>more than %1 assignments</source>
        <translation>mehr als %1 Zuordnungen</translation>
    </message>
    <message>
        <source>Task %1 has no usable dates; it has no bar.</source>
        <translation>Vorgang %1 hat keine brauchbaren Daten; er hat keinen Balken.</translation>
    </message>
    <message>
        <source>Task %1 has a link with an unknown task (UID %2); it is left out.</source>
        <translation>Vorgang %1 ist mit einem unbekannten Vorgang (UID %2) verknüpft; die Verknüpfung wird ausgelassen.</translation>
    </message>
    <message>
        <source>Task %1 is linked with itself.</source>
        <translation>Vorgang %1 ist mit sich selbst verknüpft.</translation>
    </message>
    <message>
        <source>An assignment names an unknown resource (UID %1); it is left out.</source>
        <translation>Eine Zuordnung nennt eine unbekannte Ressource (UID %1); sie wird ausgelassen.</translation>
    </message>
    <message>
        <source>An assignment names an unknown task (UID %1); it is left out.</source>
        <translation>Eine Zuordnung nennt einen unbekannten Vorgang (UID %1); sie wird ausgelassen.</translation>
    </message>
    <message numerus="yes">
        <source>The links of %n tasks lead in a circle, among them %1 and %2.</source>
        <translation>
            <numerusform>Die Verknüpfungen von %n Vorgang führen im Kreis, darunter %1 und %2.</numerusform>
            <numerusform>Die Verknüpfungen von %n Vorgängen führen im Kreis, darunter %1 und %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n task(s) with subtasks not marked as summary task(s); shown as such.</source>
        <translation>
            <numerusform>%n Vorgang mit Teilvorgängen ist nicht als Sammelvorgang gekennzeichnet; er wird so gezeigt.</numerusform>
            <numerusform>%n Vorgänge mit Teilvorgängen sind nicht als Sammelvorgänge gekennzeichnet; sie werden so gezeigt.</numerusform>
        </translation>
    </message>
    <message>
        <source>Tasks must lie between the years 1900 and 3999.</source>
        <translation>Vorgänge müssen zwischen den Jahren 1900 und 3999 liegen.</translation>
    </message>
    <message>
        <source>unnamed task</source>
        <translation>unbenannter Vorgang</translation>
    </message>
    <message>
        <source>A task needs a name.</source>
        <translation>Ein Vorgang braucht einen Namen.</translation>
    </message>
    <message>
        <source>A name has %1 characters at most.</source>
        <translation>Ein Name hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>%1 would finish before it starts.</source>
        <translation>%1 würde vor dem Anfang enden.</translation>
    </message>
    <message>
        <source>%1 is a summary task: its subtasks make its length.</source>
        <translation>%1 ist ein Sammelvorgang: Seine Teilvorgänge bestimmen die Länge.</translation>
    </message>
    <message>
        <source>%1 is a milestone: it has no length.</source>
        <translation>%1 ist ein Meilenstein und hat keine Länge.</translation>
    </message>
    <message>
        <source>%1 cannot be linked to itself.</source>
        <translation>%1 kann nicht mit sich selbst verknüpft werden.</translation>
    </message>
    <message>
        <source>%1 cannot be linked to its own summary task %2.</source>
        <translation>%1 kann nicht mit dem eigenen Sammelvorgang %2 verknüpft werden.</translation>
    </message>
    <message>
        <source>%1 is linked to %2 already.</source>
        <translation>%1 ist schon mit %2 verknüpft.</translation>
    </message>
    <message>
        <source>A link from %1 to %2 would close a circle.</source>
        <translation>Eine Verknüpfung von %1 nach %2 würde einen Kreis schließen.</translation>
    </message>
    <message>
        <source>A plan has %1 links at most.</source>
        <translation>Ein Plan hat höchstens %1 Verknüpfungen.</translation>
    </message>
    <message>
        <source>Select the tasks to be linked, two at least.</source>
        <translation>Wählen Sie mindestens zwei Vorgänge aus, die verknüpft werden sollen.</translation>
    </message>
    <message>
        <source>The numbers of tasks come from their order.</source>
        <translation>Die Nummern der Vorgänge folgen aus ihrer Reihenfolge.</translation>
    </message>
    <message>
        <source>A plan has %1 tasks at most.</source>
        <translation>Ein Plan hat höchstens %1 Vorgänge.</translation>
    </message>
    <message>
        <source>An outline has %1 levels at most.</source>
        <translation>Eine Gliederung hat höchstens %1 Ebenen.</translation>
    </message>
    <message>
        <source>%1 cannot become a subtask of itself.</source>
        <translation>%1 kann nicht eigener Teilvorgang werden.</translation>
    </message>
    <message>
        <source>%1 cannot become a subtask of %2: they are linked.</source>
        <translation>%1 kann nicht Teilvorgang von %2 werden: Beide sind verknüpft.</translation>
    </message>
    <message>
        <source>%1 has no task before it to become its summary task.</source>
        <translation>Vor %1 steht kein Vorgang, der Sammelvorgang werden könnte.</translation>
    </message>
    <message>
        <source>%1 is at the top level already.</source>
        <translation>%1 steht schon auf der obersten Ebene.</translation>
    </message>
    <message>
        <source>%1 is the first task of its level already.</source>
        <translation>%1 ist schon der erste Vorgang der Ebene.</translation>
    </message>
    <message>
        <source>%1 is the last task of its level already.</source>
        <translation>%1 ist schon der letzte Vorgang der Ebene.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date.</source>
        <translation>„%1“ ist kein Datum.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date between 1899-12-30 and 4000-01-01.</source>
        <translation>„%1“ ist kein Datum zwischen 1899-12-30 und 4000-01-01.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a UID.</source>
        <translation>„%1“ ist keine UID.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a percentage.</source>
        <translation>„%1“ ist kein Prozentwert.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a percentage between 0 and 100.</source>
        <translation>„%1“ ist kein Prozentwert zwischen 0 und 100.</translation>
    </message>
    <message>
        <source>not a plan of a known format</source>
        <translation>kein Plan in einem bekannten Format</translation>
    </message>
    <message>
        <source>All plans (%1)</source>
        <translation>Alle Pläne (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... und %n weiterer</numerusform>
            <numerusform>... und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>der Ordner %1 ist nicht vorhanden</translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>the file ends too early</source>
        <translation>die Datei endet zu früh</translation>
    </message>
    <message>
        <source>no XML element in the file</source>
        <translation>kein XML-Element in der Datei</translation>
    </message>
    <message>
        <source>not well-formed XML: %1</source>
        <translation>kein wohlgeformtes XML: %1</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>finish</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Predecessors</source>
        <translation>Vorgänger</translation>
    </message>
    <message>
        <source>predecessors</source>
        <translation>Vorgänger</translation>
    </message>
    <message>
        <source>Resources</source>
        <translation>Ressourcen</translation>
    </message>
    <message>
        <source>resources</source>
        <translation>Ressourcen</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>Fertigstellung</translation>
    </message>
    <message>
        <source>%1 is no date. Type it like %2.</source>
        <translation>%1 ist kein Datum. Schreiben Sie es wie %2.</translation>
    </message>
    <message>
        <source>%1 is no duration. Type it like 3d, 4h or 30m.</source>
        <translation>%1 ist keine Dauer. Schreiben Sie sie wie 3d (Tage), 4h (Stunden) oder 30m (Minuten).</translation>
    </message>
    <message>
        <source>%1 is no lag. Type it like +2d, -4h or +50%.</source>
        <translation>%1 ist kein Zeitabstand. Schreiben Sie ihn wie +2d, -4h oder +50%.</translation>
    </message>
    <message>
        <source>%1 is no predecessor. Type the number of the task, as in 4 or 4FS+2d.</source>
        <translation>%1 ist kein Vorgänger. Schreiben Sie die Nummer des Vorgangs, wie in 4 oder 4FS+2d.</translation>
    </message>
    <message>
        <source>There is no task %1.</source>
        <translation>Es gibt keinen Vorgang %1.</translation>
    </message>
    <message>
        <source>Task %1 is named twice.</source>
        <translation>Vorgang %1 ist zweimal genannt.</translation>
    </message>
    <message>
        <source>%1 is no part of a resource. Type it like [50%].</source>
        <translation>%1 ist kein Anteil einer Ressource. Schreiben Sie ihn wie [50%].</translation>
    </message>
    <message>
        <source>There is no resource %1.</source>
        <translation>Es gibt keine Ressource %1.</translation>
    </message>
    <message>
        <source>%1 is named twice.</source>
        <translation>%1 ist zweimal genannt.</translation>
    </message>
    <message>
        <source>%1 is no percentage from 0 to 100.</source>
        <translation>%1 ist kein Prozentwert von 0 bis 100.</translation>
    </message>
    <message>
        <source>there is no %1</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>frequencies.txt is not used: trips that are repeated are shown once.</source>
        <translation>frequencies.txt wird nicht verwendet: Wiederholte Fahrten erscheinen einmal.</translation>
    </message>
    <message>
        <source>The route is there already; this line is ignored.</source>
        <translation>Die Linie gibt es schon; diese Zeile wird übergangen.</translation>
    </message>
    <message>
        <source>more than %1 trips</source>
        <translation>mehr als %1 Fahrten</translation>
    </message>
    <message>
        <source>The trip&apos;s route is unknown; it is left out.</source>
        <translation>Die Linie der Fahrt ist unbekannt; sie wird ausgelassen.</translation>
    </message>
    <message>
        <source>The trip is there already; this line is ignored.</source>
        <translation>Die Fahrt gibt es schon; diese Zeile wird übergangen.</translation>
    </message>
    <message>
        <source>Block %1</source>
        <translation>Umlauf %1</translation>
    </message>
    <message>
        <source>The time is of an unknown trip.</source>
        <translation>Die Zeit gehört zu einer unbekannten Fahrt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time; it is ignored.</source>
        <translation>„%1“ ist keine Zeit und wird übergangen.</translation>
    </message>
    <message>
        <source>The dates make no sense; this line is ignored.</source>
        <translation>Die Daten ergeben keinen Sinn; diese Zeile wird übergangen.</translation>
    </message>
    <message>
        <source>The exception makes no sense; it is ignored.</source>
        <translation>Die Ausnahme ergibt keinen Sinn; sie wird übergangen.</translation>
    </message>
    <message>
        <source>Without a block</source>
        <translation>Ohne Umlauf</translation>
    </message>
    <message>
        <source>the trips name no vehicle blocks; a row can only be a route</source>
        <translation>die Fahrten nennen keine Umläufe; eine Zeile kann nur eine Linie sein</translation>
    </message>
    <message>
        <source>a row of a timetable is a block or a route, not a %1</source>
        <translation>eine Zeile eines Fahrplans ist block oder route, nicht %1</translation>
    </message>
    <message>
        <source>no trip runs on any day</source>
        <translation>an keinem Tag gibt es eine Fahrt</translation>
    </message>
    <message numerus="yes">
        <source>%n trip(s) longer than a day.</source>
        <translation>
            <numerusform>%n Fahrt dauert länger als einen Tag.</numerusform>
            <numerusform>%n Fahrten dauern länger als einen Tag.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n trip(s) without times left out.</source>
        <translation>
            <numerusform>%n Fahrt ohne Zeiten ausgelassen.</numerusform>
            <numerusform>%n Fahrten ohne Zeiten ausgelassen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n trip(s) not in the week that is shown.</source>
        <translation>
            <numerusform>%n Fahrt verkehrt nicht in der gezeigten Woche.</numerusform>
            <numerusform>%n Fahrten verkehren nicht in der gezeigten Woche.</numerusform>
        </translation>
    </message>
    <message>
        <source>no trip runs on that day</source>
        <translation>an diesem Tag gibt es keine Fahrt</translation>
    </message>
    <message>
        <source>Route %1, trip %2
%3 – %4, %5 stops</source>
        <translation>Linie %1, Fahrt %2
%3 – %4, %5 Halte</translation>
    </message>
    <message>
        <source>Timetable</source>
        <translation>Fahrplan</translation>
    </message>
    <message>
        <source>a single text or comment of more than %1 characters</source>
        <translation>ein einzelner Text oder Kommentar mit mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>a tag of more than %1 characters</source>
        <translation>ein Tag mit mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>elements nested more than %1 deep</source>
        <translation>mehr als %1-fach geschachtelte Elemente</translation>
    </message>
    <message>
        <source>a tag with more than %1 attributes</source>
        <translation>ein Tag mit mehr als %1 Attributen</translation>
    </message>
    <message>
        <source>a document type of more than %1 characters</source>
        <translation>ein Dokumenttyp mit mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>a document type with declarations of its own, such as entities, is not accepted in a plan</source>
        <translation>ein Dokumenttyp mit eigenen Deklarationen, etwa Entitäten, ist in einem Plan nicht zulässig</translation>
    </message>
    <message>
        <source>the zip archive is incomplete</source>
        <translation>das Zip-Archiv ist unvollständig</translation>
    </message>
    <message>
        <source>the zip archive&apos;s list of files is damaged</source>
        <translation>die Dateiliste des Zip-Archivs ist beschädigt</translation>
    </message>
    <message>
        <source>%1 is encrypted or packed in an unknown way</source>
        <translation>%1 ist verschlüsselt oder auf unbekannte Art gepackt</translation>
    </message>
    <message>
        <source>%1 is cut off in the zip archive</source>
        <translation>%1 ist im Zip-Archiv abgeschnitten</translation>
    </message>
    <message>
        <source>Resource</source>
        <translation>Ressource</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Vorgang</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n cell(s)</source>
        <translation>
            <numerusform>%n Zelle einfügen</numerusform>
            <numerusform>%n Zellen einfügen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clear %n cell(s)</source>
        <translation>
            <numerusform>%n Zelle leeren</numerusform>
            <numerusform>%n Zellen leeren</numerusform>
        </translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message>
        <source>Change %1 of %2</source>
        <translation>%1 von %2 ändern</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remark(s)</source>
        <translation>
            <numerusform>%Ln Hinweis</numerusform>
            <numerusform>%Ln Hinweise</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Assigned beyond its limit of %1:</source>
        <translation>Über die Grenze von %1 hinaus belegt:</translation>
    </message>
    <message>
        <source>Calendars (*.ics *.ics.gz);;Conference programmes (*.xml *.json)</source>
        <translation>Kalender (*.ics *.ics.gz);;Konferenzprogramme (*.xml *.json)</translation>
    </message>
    <message numerus="yes">
        <source>%Ln event(s)</source>
        <translation>
            <numerusform>%Ln Termin</numerusform>
            <numerusform>%Ln Termine</numerusform>
        </translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Woche</translation>
    </message>
    <message>
        <source>Work week</source>
        <translation>Arbeitswoche</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Day by place</source>
        <translation>Tag nach Orten</translation>
    </message>
    <message>
        <source>Day by calendar</source>
        <translation>Tag nach Kalendern</translation>
    </message>
    <message numerus="yes">
        <source>%Ln room(s)</source>
        <translation>
            <numerusform>%Ln Raum</numerusform>
            <numerusform>%Ln Räume</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 hours, none of them working time</source>
        <translation>%1 Stunden, nichts davon Arbeitszeit</translation>
    </message>
    <message>
        <source>%1 working day</source>
        <translation>%1 Arbeitstag</translation>
    </message>
    <message>
        <source>%1 working days</source>
        <translation>%1 Arbeitstage</translation>
    </message>
    <message>
        <source>%1 (%2 %)</source>
        <translation>%1 (%2 %)</translation>
    </message>
    <message>
        <source>On</source>
        <comment>date of a milestone</comment>
        <translation>Am</translation>
    </message>
    <message>
        <source>Baseline</source>
        <translation>Basisplan</translation>
    </message>
    <message>
        <source>Deadline</source>
        <translation>Stichtag</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Rows from, to:</source>
        <translation>&amp;Zeilen von, bis:</translation>
    </message>
    <message>
        <source>&amp;Selected rows only</source>
        <translation>Nur aus&amp;gewählte Zeilen</translation>
    </message>
    <message>
        <source>Time axis also at the &amp;bottom</source>
        <translation>Zeitachse auch &amp;unten</translation>
    </message>
    <message>
        <source>Co&amp;lumns from, to:</source>
        <translation>&amp;Spalten von, bis:</translation>
    </message>
    <message>
        <source>Columns with &amp;selected events only</source>
        <translation>Nur Spalten mit aus&amp;gewählten Terminen</translation>
    </message>
    <message>
        <source>Time axis also at the rig&amp;ht</source>
        <translation>Zeitachse auch &amp;rechts</translation>
    </message>
    <message>
        <source>Print at so many percent of the size on screen, instead of --fit.</source>
        <translation>In so viel Prozent der Bildschirmgröße drucken, statt --fit.</translation>
    </message>
    <message>
        <source>percent</source>
        <comment>value of an option</comment>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>Enlarge what is smaller than its pages.</source>
        <translation>Vergrößern, was kleiner als seine Seiten ist.</translation>
    </message>
    <message>
        <source>--scale needs percent, from %1 to %2</source>
        <translation>--scale verlangt Prozent, von %1 bis %2</translation>
    </message>
    <message>
        <source>--scale goes neither with --fit nor with --enlarge</source>
        <translation>--scale geht weder mit --fit noch mit --enlarge</translation>
    </message>
</context>
<context>
    <name>korvane::planner::EditActions</name>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
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
        <source>&amp;New task</source>
        <translation>&amp;Neuer Vorgang</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Indent</source>
        <translation>&amp;Einrücken</translation>
    </message>
    <message>
        <source>Alt+Shift+Right</source>
        <translation>Alt+Shift+Right</translation>
    </message>
    <message>
        <source>&amp;Outdent</source>
        <translation>Ausrü&amp;cken</translation>
    </message>
    <message>
        <source>Alt+Shift+Left</source>
        <translation>Alt+Shift+Left</translation>
    </message>
    <message>
        <source>Mo&amp;ve up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Alt+Shift+Up</source>
        <translation>Alt+Shift+Up</translation>
    </message>
    <message>
        <source>Move do&amp;wn</source>
        <translation>Nach un&amp;ten</translation>
    </message>
    <message>
        <source>Alt+Shift+Down</source>
        <translation>Alt+Shift+Down</translation>
    </message>
    <message>
        <source>&amp;Link in order</source>
        <translation>Der Reihe nach &amp;verknüpfen</translation>
    </message>
    <message>
        <source>Ctrl+F2</source>
        <translation>Ctrl+F2</translation>
    </message>
    <message>
        <source>Unlin&amp;k</source>
        <translation>Ver&amp;knüpfung lösen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+F2</source>
        <translation>Ctrl+Shift+F2</translation>
    </message>
    <message>
        <source>Edit link...</source>
        <translation>Verknüpfung bearbeiten ...</translation>
    </message>
    <message>
        <source>Draw link&amp;s</source>
        <translation>Verknüpfungen &amp;zeichnen</translation>
    </message>
    <message>
        <source>Ctrl+L</source>
        <translation>Ctrl+L</translation>
    </message>
    <message>
        <source>Drag from a task to the one that follows it.</source>
        <translation>Ziehen Sie von einem Vorgang zu dem, der auf ihn folgt.</translation>
    </message>
    <message>
        <source>Move &amp;earlier</source>
        <translation>&amp;Früher</translation>
    </message>
    <message>
        <source>Ctrl+Left</source>
        <translation>Ctrl+Left</translation>
    </message>
    <message>
        <source>Move la&amp;ter</source>
        <translation>S&amp;päter</translation>
    </message>
    <message>
        <source>Ctrl+Right</source>
        <translation>Ctrl+Right</translation>
    </message>
    <message>
        <source>Task &amp;properties...</source>
        <translation>Vorgangseigen&amp;schaften ...</translation>
    </message>
    <message>
        <source>Alt+Return</source>
        <translation>Alt+Return</translation>
    </message>
    <message>
        <source>Select the link, or the two tasks that it joins.</source>
        <translation>Wählen Sie die Verknüpfung oder die beiden Vorgänge aus, die sie verbindet.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::EventDialog</name>
    <message>
        <source>&amp;All day</source>
        <translation>&amp;Ganztägig</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Termin</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Location</source>
        <translation>&amp;Ort</translation>
    </message>
    <message>
        <source>&amp;Calendar</source>
        <translation>&amp;Kalender</translation>
    </message>
    <message>
        <source>&amp;Description</source>
        <translation>&amp;Beschreibung</translation>
    </message>
    <message>
        <source>Those of the series</source>
        <translation>Die der Serie</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Anfang</translation>
    </message>
    <message>
        <source>&amp;End</source>
        <translation>&amp;Ende</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy</source>
        <translation>ddd, d. MMM yyyy</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy  HH:mm</source>
        <translation>ddd, d. MMM yyyy  HH:mm</translation>
    </message>
    <message>
        <source>The event ends before it starts.</source>
        <translation>Der Termin endet vor seinem Anfang.</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>Jährlich</translation>
    </message>
    <message>
        <source>By a rule of its own</source>
        <translation>Nach eigener Regel</translation>
    </message>
    <message>
        <source>every </source>
        <translation>alle </translation>
    </message>
    <message>
        <source>for ever</source>
        <translation>ohne Ende</translation>
    </message>
    <message>
        <source>so many times:</source>
        <translation>so viele Male:</translation>
    </message>
    <message>
        <source>until:</source>
        <translation>bis:</translation>
    </message>
    <message>
        <source>&amp;Repeats</source>
        <translation>&amp;Wiederholung</translation>
    </message>
    <message>
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>weeks</source>
        <translation>Wochen</translation>
    </message>
    <message>
        <source>months</source>
        <translation>Monate</translation>
    </message>
    <message>
        <source>years</source>
        <translation>Jahre</translation>
    </message>
</context>
<context>
    <name>korvane::planner::LinkDialog</name>
    <message>
        <source>Link properties</source>
        <translation>Eigenschaften der Verknüpfung</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Nach</translation>
    </message>
    <message>
        <source>&amp;Type</source>
        <translation>&amp;Art</translation>
    </message>
    <message>
        <source>&amp;Lag</source>
        <translation>&amp;Zeitabstand</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Negative where the tasks overlap.</source>
        <translation>Negativ, wenn die Vorgänge sich überlappen.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::LoadProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>korvane::planner::MainWindow</name>
    <message>
        <source>Open a plan with Ctrl+O, or drop a file here.</source>
        <translation>Öffnen Sie einen Plan mit Strg+O, oder ziehen Sie eine Datei hierher.</translation>
    </message>
    <message>
        <source>Planner</source>
        <translation>Planer</translation>
    </message>
    <message>
        <source>No copy could be kept: %1</source>
        <translation>Es konnte keine Kopie aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>%1[*] – Planner</source>
        <translation>%1[*] – Planer</translation>
    </message>
    <message>
        <source>%1 (%2)[*] – Planner</source>
        <translation>%1 (%2)[*] – Planer</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>There are changes of %1 that were not saved.</source>
        <translation>Es gibt nicht gespeicherte Änderungen an %1.</translation>
    </message>
    <message>
        <source>The planner ended without saving; a copy of %1 has been kept. Recover it?</source>
        <translation>Der Planer wurde ohne Speichern beendet; vom %1 gibt es eine Kopie. Soll sie wiederhergestellt werden?</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard the copy</source>
        <translation>Kopie &amp;verwerfen</translation>
    </message>
    <message>
        <source>Save the changes of %1?</source>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>They are lost otherwise.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
    <message>
        <source>%1 is open in another planner.</source>
        <translation>%1 ist in einem anderen Planer geöffnet.</translation>
    </message>
    <message>
        <source>Save the plan under another name, or close it there first.</source>
        <translation>Speichern Sie den Plan unter einem anderen Namen, oder schließen Sie ihn zuerst dort.</translation>
    </message>
    <message>
        <source>%1 has been changed by another program.</source>
        <translation>%1 wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>Saving overwrites what has been changed there.</source>
        <translation>Speichern überschreibt, was dort geändert wurde.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>Save the plan</source>
        <translation>Plan speichern</translation>
    </message>
    <message>
        <source>Project XML (*.xml *.xml.gz)</source>
        <translation>Projekt-XML (*.xml *.xml.gz)</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>%1 wird gespeichert</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>%1 kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen ...</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Open the sa&amp;mple plan</source>
        <translation>&amp;Beispielplan öffnen</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Save as p&amp;icture...</source>
        <translation>Als B&amp;ild speichern ...</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Fit the plan</source>
        <translation>Plan ein&amp;passen</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Ctrl++</source>
        <translation>Ctrl++</translation>
    </message>
    <message>
        <source>Ctrl+=</source>
        <translation>Ctrl+=</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Ctrl+-</source>
        <translation>Ctrl+-</translation>
    </message>
    <message>
        <source>Go to toda&amp;y</source>
        <translation>Zu &amp;heute</translation>
    </message>
    <message>
        <source>Ctrl+T</source>
        <translation>Ctrl+T</translation>
    </message>
    <message>
        <source>&amp;Earlier</source>
        <translation>&amp;Früher</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>Spät&amp;er</translation>
    </message>
    <message>
        <source>Ctrl+PgDown</source>
        <translation>Ctrl+PgDown</translation>
    </message>
    <message>
        <source>E&amp;xpand all</source>
        <translation>Alle &amp;aufklappen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Right</source>
        <translation>Ctrl+Shift+Right</translation>
    </message>
    <message>
        <source>&amp;Collapse all</source>
        <translation>Alle &amp;zuklappen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Left</source>
        <translation>Ctrl+Shift+Left</translation>
    </message>
    <message>
        <source>Ta&amp;ble</source>
        <translation>&amp;Tabelle</translation>
    </message>
    <message>
        <source>Ctrl+3</source>
        <translation>Ctrl+3</translation>
    </message>
    <message>
        <source>Table col&amp;umns</source>
        <translation>Tabellenspa&amp;lten</translation>
    </message>
    <message>
        <source>B&amp;aselines</source>
        <translation>&amp;Basispläne</translation>
    </message>
    <message>
        <source>&amp;Deadlines</source>
        <translation>&amp;Stichtage</translation>
    </message>
    <message>
        <source>Re&amp;marks</source>
        <translation>H&amp;inweise</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keys and wheel</source>
        <translation>&amp;Tasten und Mausrad</translation>
    </message>
    <message>
        <source>&amp;About the planner</source>
        <translation>&amp;Über den Planer</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Über &amp;Qt</translation>
    </message>
    <message>
        <source>Open a plan</source>
        <translation>Plan öffnen</translation>
    </message>
    <message>
        <source>Save as picture</source>
        <translation>Als Bild speichern</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Mausrad</translation>
    </message>
    <message>
        <source>Scroll the rows</source>
        <translation>Zeilen verschieben</translation>
    </message>
    <message>
        <source>Ctrl + wheel</source>
        <translation>Strg + Mausrad</translation>
    </message>
    <message>
        <source>Zoom about the pointer</source>
        <translation>Um den Mauszeiger zoomen</translation>
    </message>
    <message>
        <source>Shift + wheel</source>
        <translation>Umschalt + Mausrad</translation>
    </message>
    <message>
        <source>Earlier or later</source>
        <translation>Früher oder später</translation>
    </message>
    <message>
        <source>Keys and wheel</source>
        <translation>Tasten und Mausrad</translation>
    </message>
    <message>
        <source>About the planner</source>
        <translation>Über den Planer</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Planner %1&lt;/h3&gt;&lt;p&gt;Shows project plans as Gantt charts: project XML files (.xml, .xml.gz), GanttProject files (.gan), timetables (.zip, or a folder of GTFS tables) and job traces (.swf).&lt;/p&gt;&lt;p&gt;Built with Korvane, a library of visual components for planning and scheduling.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Planer %1&lt;/h3&gt;&lt;p&gt;Zeigt Projektpläne als Gantt-Diagramme: Projekt-XML-Dateien (.xml, .xml.gz), GanttProject-Dateien (.gan), Fahrpläne (.zip oder ein Ordner mit GTFS-Tabellen) und Auftragsprotokolle (.swf).&lt;/p&gt;&lt;p&gt;Erstellt mit Korvane, einer Bibliothek visueller Komponenten für Planung und Terminierung.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PlanChart</name>
    <message>
        <source>Link	Finish to start</source>
        <translation>Verknüpfung	Ende-Anfang</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PlanEdits</name>
    <message numerus="yes">
        <source>%n tasks</source>
        <translation>
            <numerusform>%n Vorgang</numerusform>
            <numerusform>%n Vorgänge</numerusform>
        </translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Resize %1</source>
        <translation>Länge von %1 ändern</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>%1 umbenennen</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>Insert task</source>
        <translation>Vorgang einfügen</translation>
    </message>
    <message>
        <source>New task</source>
        <translation>Neuer Vorgang</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Copy %1</source>
        <translation>%1 kopieren</translation>
    </message>
    <message>
        <source>Move %1 into %2</source>
        <translation>%1 in %2 verschieben</translation>
    </message>
    <message>
        <source>Rearrange %1</source>
        <translation>%1 umordnen</translation>
    </message>
    <message>
        <source>Indent %1</source>
        <translation>%1 einrücken</translation>
    </message>
    <message>
        <source>Outdent %1</source>
        <translation>%1 ausrücken</translation>
    </message>
    <message>
        <source>Move %1 up</source>
        <translation>%1 nach oben</translation>
    </message>
    <message>
        <source>Move %1 down</source>
        <translation>%1 nach unten</translation>
    </message>
    <message>
        <source>Link %1 to %2</source>
        <translation>%1 mit %2 verknüpfen</translation>
    </message>
    <message numerus="yes">
        <source>Link %n tasks</source>
        <translation>
            <numerusform>%n Vorgang verknüpfen</numerusform>
            <numerusform>%n Vorgänge verknüpfen</numerusform>
        </translation>
    </message>
    <message>
        <source>Unlink %1 and %2</source>
        <translation>Verknüpfung von %1 und %2 lösen</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n links</source>
        <translation>
            <numerusform>%n Verknüpfung entfernen</numerusform>
            <numerusform>%n Verknüpfungen entfernen</numerusform>
        </translation>
    </message>
    <message>
        <source>Change the link of %1 and %2</source>
        <translation>Verknüpfung von %1 und %2 ändern</translation>
    </message>
    <message>
        <source>There are no links between the selected tasks.</source>
        <translation>Zwischen den ausgewählten Vorgängen gibt es keine Verknüpfungen.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PrintActions</name>
    <message>
        <source>Print pre&amp;view...</source>
        <translation>Druck&amp;vorschau ...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+P</source>
        <translation>Ctrl+Shift+P</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken ...</translation>
    </message>
    <message>
        <source>E&amp;xport pages...</source>
        <translation>Seiten e&amp;xportieren ...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+E</source>
        <translation>Ctrl+Shift+E</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PrintDialog</name>
    <message>
        <source>Print preview</source>
        <translation>Druckvorschau</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken ...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportieren ...</translation>
    </message>
    <message>
        <source>Page before</source>
        <translation>Vorherige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Whole page</source>
        <translation>Ganze Seite</translation>
    </message>
    <message>
        <source>Page width</source>
        <translation>Seitenbreite</translation>
    </message>
    <message>
        <source>Resolution of PNG pictures</source>
        <translation>Auflösung von PNG-Bildern</translation>
    </message>
    <message>
        <source>%1 dpi</source>
        <translation>%1 dpi</translation>
    </message>
    <message>
        <source>No pages</source>
        <translation>Keine Seiten</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>PDF document (*.pdf);;SVG pictures (*.svg);;PNG pictures (*.png)</source>
        <translation>PDF-Dokument (*.pdf);;SVG-Bilder (*.svg);;PNG-Bilder (*.png)</translation>
    </message>
    <message>
        <source>Zoo&amp;m:</source>
        <translation>Zoo&amp;m:</translation>
    </message>
    <message>
        <source>PNG p&amp;ictures:</source>
        <translation>PNG-B&amp;ilder:</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PrintForm</name>
    <message>
        <source>Other size</source>
        <translation>Anderes Format</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Hochformat</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>&amp;Orientation:</source>
        <translation>&amp;Ausrichtung:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>Linker Rand</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>Oberer Rand</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>Rechter Rand</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>Unterer Rand</translation>
    </message>
    <message>
        <source>Percent of the screen&apos;s</source>
        <translation>Prozent der Bildschirmgröße</translation>
    </message>
    <message>
        <source>Fit to one page&apos;s width</source>
        <translation>Auf eine Seitenbreite einpassen</translation>
    </message>
    <message>
        <source>Fit to one page&apos;s height</source>
        <translation>Auf eine Seitenhöhe einpassen</translation>
    </message>
    <message>
        <source>Fit to pages</source>
        <translation>Auf Seitenzahl einpassen</translation>
    </message>
    <message>
        <source>&amp;Scale:</source>
        <translation>&amp;Maßstab:</translation>
    </message>
    <message>
        <source>by</source>
        <translation>mal</translation>
    </message>
    <message>
        <source>Pages across, at most</source>
        <translation>Seiten nebeneinander, höchstens</translation>
    </message>
    <message>
        <source>Pages down, at most</source>
        <translation>Seiten untereinander, höchstens</translation>
    </message>
    <message>
        <source>any</source>
        <translation>beliebig</translation>
    </message>
    <message>
        <source>Repeat &amp;headings of groups on every page</source>
        <translation>Gruppen&amp;köpfe auf jeder Seite wiederholen</translation>
    </message>
    <message>
        <source>&amp;Days from, to:</source>
        <translation>&amp;Tage von, bis:</translation>
    </message>
    <message>
        <source>{title}, {file}, {date}, {time}, {range}, {page} and {pages} are filled in.</source>
        <translation>{title}, {file}, {date}, {time}, {range}, {page} und {pages} werden ausgefüllt.</translation>
    </message>
    <message>
        <source>Pap&amp;er</source>
        <translation>Papi&amp;er</translation>
    </message>
    <message>
        <source>Co&amp;ntent</source>
        <translation>I&amp;nhalt</translation>
    </message>
    <message>
        <source>Texts and mar&amp;ks</source>
        <translation>Texte und Mar&amp;ken</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Breite:</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Höhe:</translation>
    </message>
    <message>
        <source>Margins &amp;left, right:</source>
        <translation>Ränder &amp;links, rechts:</translation>
    </message>
    <message>
        <source>top, &amp;bottom:</source>
        <translation>oben, &amp;unten:</translation>
    </message>
    <message>
        <source>Pe&amp;rcent:</source>
        <translation>Pro&amp;zent:</translation>
    </message>
    <message>
        <source>Pages, &amp;up to:</source>
        <translation>Seiten, bi&amp;s zu:</translation>
    </message>
    <message>
        <source>Enlar&amp;ge as well</source>
        <translation>Auch ver&amp;größern</translation>
    </message>
    <message>
        <source>Co&amp;lumns:</source>
        <translation>&amp;Spalten:</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Erster Tag</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>The first one</source>
        <translation>Erste</translation>
    </message>
    <message>
        <source>The last one</source>
        <translation>Letzte</translation>
    </message>
    <message>
        <source>Header &amp;left:</source>
        <translation>Kopf &amp;links:</translation>
    </message>
    <message>
        <source>cen&amp;tre:</source>
        <translation>Mi&amp;tte:</translation>
    </message>
    <message>
        <source>ri&amp;ght:</source>
        <translation>re&amp;chts:</translation>
    </message>
    <message>
        <source>&amp;Footer left:</source>
        <translation>&amp;Fuß links:</translation>
    </message>
    <message>
        <source>cent&amp;re:</source>
        <translation>Mitt&amp;e:</translation>
    </message>
    <message>
        <source>rig&amp;ht:</source>
        <translation>rec&amp;hts:</translation>
    </message>
    <message>
        <source>Cr&amp;op marks</source>
        <translation>Schnittm&amp;arken</translation>
    </message>
    <message>
        <source>Marks for gl&amp;uing pages together</source>
        <translation>Marken z&amp;um Zusammenkleben der Seiten</translation>
    </message>
    <message>
        <source>Times of &amp;day from, to:</source>
        <translation>&amp;Uhrzeiten von, bis:</translation>
    </message>
    <message>
        <source>Begins at</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Ends at</source>
        <translation>Ende</translation>
    </message>
</context>
<context>
    <name>korvane::planner::RecentFiles</name>
    <message>
        <source>No files yet</source>
        <translation>Noch keine Dateien</translation>
    </message>
    <message>
        <source>&amp;Clear list</source>
        <translation>&amp;Liste leeren</translation>
    </message>
</context>
<context>
    <name>korvane::planner::RemarksPanel</name>
    <message>
        <source>Remarks</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ResourceChart</name>
    <message>
        <source>Unassigned</source>
        <translation>Ohne Zuordnung</translation>
    </message>
    <message>
        <source>Resource %1</source>
        <translation>Ressource %1</translation>
    </message>
    <message>
        <source>%1 – %2 %</source>
        <translation>%1 – %2 %</translation>
    </message>
    <message>
        <source>%1 – %2 of %3 %</source>
        <translation>%1 – %2 von %3 %</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ScheduleDocument</name>
    <message>
        <source>Copy %1</source>
        <translation>%1 kopieren</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>%1 löschen</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>New event “%1”</source>
        <translation>Neuer Termin „%1“</translation>
    </message>
    <message>
        <source>Paste “%1”</source>
        <translation>„%1“ einfügen</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n events</source>
        <translation>
            <numerusform>%n Termin einfügen</numerusform>
            <numerusform>%n Termine einfügen</numerusform>
        </translation>
    </message>
    <message>
        <source>Calendar %1</source>
        <translation>Kalender %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>%1 verschieben</translation>
    </message>
    <message>
        <source>Stretch %1</source>
        <translation>Länge von %1 ändern</translation>
    </message>
    <message numerus="yes">
        <source>%n events</source>
        <translation>
            <numerusform>%n Termin</numerusform>
            <numerusform>%n Termine</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>%1 and those that follow</source>
        <translation>%1, auch folgende</translation>
    </message>
    <message>
        <source>all of %1</source>
        <translation>alle von %1</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ScheduleStrip</name>
    <message>
        <source>All day</source>
        <translation>Ganztägig</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ScheduleWindow</name>
    <message>
        <source>Planner</source>
        <translation>Planer</translation>
    </message>
    <message>
        <source>%1 – Planner</source>
        <translation>%1 – Planer</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>%1[*] – Planner</source>
        <translation>%1[*] – Planer</translation>
    </message>
    <message>
        <source>%1 (%2)[*] – Planner</source>
        <translation>%1 (%2)[*] – Planer</translation>
    </message>
    <message>
        <source>%1 has been changed by another program.</source>
        <translation>%1 wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>Saving overwrites what has been changed there.</source>
        <translation>Speichern überschreibt, was dort geändert wurde.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>%1 kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>%1 has been saved.</source>
        <translation>%1 wurde gespeichert.</translation>
    </message>
    <message>
        <source>Save the calendar</source>
        <translation>Kalender speichern</translation>
    </message>
    <message>
        <source>Calendars (*.ics *.ics.gz)</source>
        <translation>Kalender (*.ics *.ics.gz)</translation>
    </message>
    <message>
        <source>Save the changes of %1?</source>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
    <message>
        <source>They are lost otherwise.</source>
        <translation>Sonst gehen sie verloren.</translation>
    </message>
    <message>
        <source>   times of %1</source>
        <translation>   Zeiten in %1</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;New event…</source>
        <translation>&amp;Neuer Termin …</translation>
    </message>
    <message>
        <source>&amp;Edit event…</source>
        <translation>Termin &amp;bearbeiten …</translation>
    </message>
    <message>
        <source>“%1” is repeated. What is to be changed?</source>
        <translation>„%1“ wiederholt sich. Was soll geändert werden?</translation>
    </message>
    <message>
        <source>&amp;This occurrence</source>
        <translation>&amp;Dieser Termin</translation>
    </message>
    <message>
        <source>This and &amp;following</source>
        <translation>Dieser und &amp;folgende</translation>
    </message>
    <message>
        <source>The whole &amp;series</source>
        <translation>Die ganze &amp;Serie</translation>
    </message>
    <message>
        <source>New event</source>
        <translation>Neuer Termin</translation>
    </message>
    <message>
        <source>The clipboard holds no events.</source>
        <translation>Die Zwischenablage enthält keine Termine.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen ...</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Ctrl+W</source>
        <translation>Ctrl+W</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
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
        <source>&amp;Whole page</source>
        <translation>Ganze &amp;Seite</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>Page before</source>
        <translation>Vorherige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Go to date…</source>
        <translation>Gehe zu Datum …</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>;;All files (*)</source>
        <translation>;;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>korvane::planner::TaskDialog</name>
    <message>
        <source>Task properties</source>
        <translation>Vorgangseigenschaften</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Anfang</translation>
    </message>
    <message>
        <source>&amp;Date</source>
        <translation>&amp;Datum</translation>
    </message>
    <message>
        <source>&amp;Finish</source>
        <translation>&amp;Ende</translation>
    </message>
    <message>
        <source>&amp;Complete</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>N&amp;otes</source>
        <translation>N&amp;otizen</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy  HH:mm</source>
        <translation>ddd, d. MMM yyyy  HH:mm</translation>
    </message>
    <message>
        <source>Has &amp;dates</source>
        <translation>&amp;Hat Termine</translation>
    </message>
    <message>
        <source>The subtasks make the dates.</source>
        <translation>Die Teilvorgänge bestimmen die Termine.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ViewSwitch</name>
    <message>
        <source>&amp;Tasks</source>
        <translation>&amp;Vorgänge</translation>
    </message>
    <message>
        <source>Ctrl+1</source>
        <translation>Ctrl+1</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>&amp;Ressourcen</translation>
    </message>
    <message>
        <source>Ctrl+2</source>
        <translation>Ctrl+2</translation>
    </message>
</context>
</TS>
