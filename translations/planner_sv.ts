<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE">
<context>
    <name>Planner</name>
    <message>
        <source>This series has no UID of its own, so that single occurrences cannot be told from others. The whole series can be changed.</source>
        <translation>Serien har inget eget UID, så enskilda förekomster kan inte skiljas från varandra. Hela serien kan ändras.</translation>
    </message>
    <message>
        <source>This series cannot be cut in two here. It can be changed as a whole.</source>
        <translation>Serien kan inte delas här. Den kan ändras som helhet.</translation>
    </message>
    <message>
        <source>One occurrence stays in the calendar of its series. The whole series can be moved to another one.</source>
        <translation>En enskild förekomst stannar i seriens kalender. Hela serien kan flyttas till en annan.</translation>
    </message>
    <message>
        <source>That calendar has this event already.</source>
        <translation>Den kalendern har redan händelsen.</translation>
    </message>
    <message>
        <source>%1 is not a date</source>
        <translation>%1 är inget datum</translation>
    </message>
    <message>
        <source>the time zone &quot;%1&quot; is not known; its times are taken as local ones</source>
        <translation>tidszonen ”%1” är okänd; dess tider tas som lokala</translation>
    </message>
    <message>
        <source>an event has more than one start; the first one holds</source>
        <translation>en händelse har mer än en start; den första gäller</translation>
    </message>
    <message>
        <source>an event of more than 100 years is cut</source>
        <translation>en händelse på mer än 100 år kortas</translation>
    </message>
    <message>
        <source>an event ends before it starts</source>
        <translation>en händelse slutar innan den börjar</translation>
    </message>
    <message>
        <source>an event that cannot be read</source>
        <translation>en händelse som inte kan läsas</translation>
    </message>
    <message>
        <source>a calendar is text, and this is none</source>
        <translation>en kalender är text, och det är inte det här</translation>
    </message>
    <message>
        <source>a time zone that cannot be read</source>
        <translation>en tidszon som inte kan läsas</translation>
    </message>
    <message>
        <source>The rule of this series names the times of day. Single occurrences can be moved.</source>
        <translation>Seriens regel anger klockslagen. Enskilda förekomster kan flyttas.</translation>
    </message>
    <message>
        <source>The rule of this series names the days. Single occurrences can be moved to others.</source>
        <translation>Seriens regel anger dagarna. Enskilda förekomster kan flyttas till andra.</translation>
    </message>
    <message>
        <source>text outside the calendars is ignored</source>
        <translation>text utanför kalendrarna ignoreras</translation>
    </message>
    <message>
        <source>the file ends within %1</source>
        <translation>filen slutar inuti %1</translation>
    </message>
    <message>
        <source>there is no calendar in this file</source>
        <translation>det finns ingen kalender i filen</translation>
    </message>
    <message>
        <source>a calendar within a calendar</source>
        <translation>en kalender inuti en kalender</translation>
    </message>
    <message>
        <source>components nested too deep</source>
        <translation>för djupt nästlade komponenter</translation>
    </message>
    <message>
        <source>%1 outside a calendar</source>
        <translation>%1 utanför en kalender</translation>
    </message>
    <message>
        <source>END:%1 without its BEGIN is ignored</source>
        <translation>END:%1 utan BEGIN ignoreras</translation>
    </message>
    <message>
        <source>%1 has no end</source>
        <translation>%1 har inget slut</translation>
    </message>
    <message>
        <source>not enough memory for this file</source>
        <translation>inte tillräckligt med minne för filen</translation>
    </message>
    <message>
        <source>a day without a date</source>
        <translation>en dag utan datum</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no start and is left out</source>
        <translation>”%1” har ingen start och utelämnas</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no duration</source>
        <translation>”%1” har ingen varaktighet</translation>
    </message>
    <message>
        <source>not a conference programme</source>
        <translation>inget konferensprogram</translation>
    </message>
    <message>
        <source>a programme without days</source>
        <translation>ett program utan dagar</translation>
    </message>
    <message>
        <source>what follows the programme is ignored</source>
        <translation>det som följer efter programmet ignoreras</translation>
    </message>
    <message>
        <source>Calendar %1</source>
        <translation>Kalender %1</translation>
    </message>
    <message>
        <source>(no place)</source>
        <translation>(ingen plats)</translation>
    </message>
    <message>
        <source>dddd, d MMMM yyyy</source>
        <translation>dddd d MMMM yyyy</translation>
    </message>
    <message>
        <source>dddd, d MMMM yyyy, </source>
        <translation>dddd d MMMM yyyy, </translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <translation>d MMMM yyyy</translation>
    </message>
    <message>
        <source>ddd d MMM</source>
        <translation>ddd d MMM</translation>
    </message>
    <message>
        <source>(nothing)</source>
        <translation>(ingenting)</translation>
    </message>
    <message>
        <source>d mmm</source>
        <translation>d mmm</translation>
    </message>
    <message>
        <source>ddd d</source>
        <translation>ddd d</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy, hh:nn:ss</source>
        <translation>ddd d mmm yyyy, hh:nn:ss</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy, hh:nn</source>
        <translation>ddd d mmm yyyy, hh:nn</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy</source>
        <translation>ddd d mmm yyyy</translation>
    </message>
    <message>
        <source>d mmm yyyy</source>
        <translation>d mmm yyyy</translation>
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
        <translation>Skriv planens nyckeltal som JSON och avsluta.</translation>
    </message>
    <message>
        <source>Write the plan as project XML (.xml or .xml.gz) and exit.</source>
        <translation>Skriv planen som projekt-XML (.xml eller .xml.gz) och avsluta.</translation>
    </message>
    <message>
        <source>output</source>
        <comment>value of an option</comment>
        <translation>utdata</translation>
    </message>
    <message>
        <source>Draw the plan into a .png, .pdf or .svg file and exit.</source>
        <translation>Rita planen i en .png-, .pdf- eller .svg-fil och avsluta.</translation>
    </message>
    <message>
        <source>picture</source>
        <comment>value of an option</comment>
        <translation>bild</translation>
    </message>
    <message>
        <source>Size of the picture in pixels, by default 1400x900.</source>
        <translation>Bildens storlek i bildpunkter, normalt 1400x900.</translation>
    </message>
    <message>
        <source>What the rows of picture or print are: tasks or resources; by default tasks for plans, resources for timetables and job traces.</source>
        <translation>Vad raderna i bild eller utskrift är: tasks (aktiviteter) eller resources (resurser); normalt aktiviteter för planer, resurser för tidtabeller och jobbloggar.</translation>
    </message>
    <message>
        <source>kind</source>
        <comment>value of an option</comment>
        <translation>typ</translation>
    </message>
    <message>
        <source>Show the table of tasks beside the chart in picture or print.</source>
        <translation>Visa aktivitetstabellen bredvid schemat i bild eller utskrift.</translation>
    </message>
    <message>
        <source>First date or date-time in the picture, or of the occurrences to count (ISO 8601).</source>
        <translation>Första datum eller tidpunkt i bilden, eller för de förekomster som räknas (ISO 8601).</translation>
    </message>
    <message>
        <source>date</source>
        <comment>value of an option</comment>
        <translation>datum</translation>
    </message>
    <message>
        <source>Where the picture, or what is counted, ends (ISO 8601).</source>
        <translation>Var bilden, eller det som räknas, slutar (ISO 8601).</translation>
    </message>
    <message>
        <source>Device pixels per pixel of a .png picture.</source>
        <translation>Enhetspunkter per bildpunkt i en .png-bild.</translation>
    </message>
    <message>
        <source>ratio</source>
        <comment>value of an option</comment>
        <translation>faktor</translation>
    </message>
    <message>
        <source>Print the plan or calendar into a .pdf file, or into .svg or .png files, one for each page, and exit.</source>
        <translation>Skriv ut planen eller kalendern i en .pdf-fil, eller i .svg- eller .png-filer, en per sida, och avsluta.</translation>
    </message>
    <message>
        <source>pages</source>
        <comment>value of an option</comment>
        <translation>sidor</translation>
    </message>
    <message>
        <source>Paper to print on: A0 to A6, letter, legal, tabloid, or WIDTHxHEIGHT in millimetres; by default A4.</source>
        <translation>Papper att skriva ut på: A0 till A6, letter, legal, tabloid eller BREDDxHÖJD i millimeter; normalt A4.</translation>
    </message>
    <message>
        <source>size</source>
        <comment>value of an option</comment>
        <translation>storlek</translation>
    </message>
    <message>
        <source>Print on paper turned on its side.</source>
        <translation>Skriv ut på liggande papper.</translation>
    </message>
    <message>
        <source>Pages to print on at most, ACROSSxDOWN; 0 for as many as it takes, by default 1x0 for plans, 0x1 for calendars.</source>
        <translation>Högsta antal sidor, BREDVIDxUNDER varandra; 0 för så många som behövs, normalt 1x0 för planer, 0x1 för kalendrar.</translation>
    </message>
    <message>
        <source>What a row stands for. Timetables (a folder or .zip of GTFS tables): block, route; by default blocks where trips name any. Job traces (.swf): node (default), partition, queue, user, group.</source>
        <translation>Vad en rad står för. Tidtabeller (mapp eller .zip med GTFS-tabeller): block (omlopp), route (linje); normalt omlopp om turerna anger sådana. Jobbloggar (.swf): node (nod, standard), partition, queue (kö), user (användare), group (grupp).</translation>
    </message>
    <message>
        <source>The service day of a timetable (ISO 8601). By default the week in which most trips run is shown, every trip once, on its first day there.</source>
        <translation>Tidtabellens trafikdag (ISO 8601). Normalt visas veckan då flest turer går, varje tur en gång, på sin första dag där.</translation>
    </message>
    <message>
        <source>Language of texts, dates and numbers: %1; by default the user&apos;s.</source>
        <translation>Språk för texter, datum och tal: %1; normalt användarens.</translation>
    </message>
    <message>
        <source>language</source>
        <comment>value of an option</comment>
        <translation>språk</translation>
    </message>
    <message>
        <source>Use dark colours.</source>
        <translation>Använd mörka färger.</translation>
    </message>
    <message>
        <source>Shows project plans, timetables and job traces as Gantt charts, calendars and conference programmes as schedules.</source>
        <translation>Visar projektplaner, tidtabeller och jobbloggar som ganttscheman, kalendrar och konferensprogram som scheman.</translation>
    </message>
    <message>
        <source>The plan to open: a file, or a folder of GTFS tables.</source>
        <translation>Planen att öppna: en fil, eller en mapp med GTFS-tabeller.</translation>
    </message>
    <message>
        <source>--lang needs one of %1</source>
        <translation>--lang behöver något av %1</translation>
    </message>
    <message>
        <source>only one file can be opened</source>
        <translation>endast en fil kan öppnas</translation>
    </message>
    <message>
        <source>--render needs a file</source>
        <translation>--render behöver en fil</translation>
    </message>
    <message>
        <source>--print needs a file</source>
        <translation>--print behöver en fil</translation>
    </message>
    <message>
        <source>--convert needs a file</source>
        <translation>--convert behöver en fil</translation>
    </message>
    <message>
        <source>--summary needs a file</source>
        <translation>--summary behöver en fil</translation>
    </message>
    <message>
        <source>--rows needs one of %1</source>
        <translation>--rows behöver något av %1</translation>
    </message>
    <message>
        <source>--day needs a date like 2026-11-02, from 1900 to 4000</source>
        <translation>--day behöver ett datum som 2026-11-02, från 1900 till 4000</translation>
    </message>
    <message>
        <source>--render needs a .png, .pdf or .svg file to write</source>
        <translation>--render behöver en .png-, .pdf- eller .svg-fil att skriva</translation>
    </message>
    <message>
        <source>--table goes with --view tasks</source>
        <translation>--table hör ihop med --view tasks</translation>
    </message>
    <message>
        <source>--size needs WIDTHxHEIGHT, each from %1 to %2</source>
        <translation>--size behöver BREDDxHÖJD, vardera från %1 till %2</translation>
    </message>
    <message>
        <source>--dpr needs a number from %1 to %2</source>
        <translation>--dpr behöver ett tal från %1 till %2</translation>
    </message>
    <message>
        <source>the picture would be too large</source>
        <translation>bilden skulle bli för stor</translation>
    </message>
    <message>
        <source>--view needs tasks or resources</source>
        <translation>--view behöver tasks eller resources</translation>
    </message>
    <message>
        <source>--print needs a .pdf, .svg or .png file to write</source>
        <translation>--print behöver en .pdf-, .svg- eller .png-fil att skriva</translation>
    </message>
    <message>
        <source>--paper needs A0 to A6, letter, legal, tabloid, or WIDTHxHEIGHT in millimetres, each from 50 to 5000</source>
        <translation>--paper behöver A0 till A6, letter, legal, tabloid eller BREDDxHÖJD i millimeter, vardera från 50 till 5000</translation>
    </message>
    <message>
        <source>--fit needs ACROSSxDOWN, each from 0 to %1</source>
        <translation>--fit behöver BREDVIDxUNDER, vardera från 0 till %1</translation>
    </message>
    <message>
        <source>--%1 needs a date like 2026-11-02, from 1900 to 4000</source>
        <translation>--%1 behöver ett datum som 2026-11-02, från 1900 till 4000</translation>
    </message>
    <message>
        <source>--from must lie before --to</source>
        <translation>--from måste ligga före --to</translation>
    </message>
    <message>
        <source>there is no display; --render and --summary need none</source>
        <translation>det finns ingen skärm; --render och --summary behöver ingen</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy  hh:nn:ss</source>
        <translation>ddd d mmm yyyy  hh:nn:ss</translation>
    </message>
    <message>
        <source>ddd d mmm yyyy  hh:nn</source>
        <translation>ddd d mmm yyyy  hh:nn</translation>
    </message>
    <message numerus="yes">
        <source>%Ln row(s)</source>
        <translation>
            <numerusform>%Ln rad</numerusform>
            <numerusform>%Ln rader</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln item(s)</source>
        <translation>
            <numerusform>%Ln stapel</numerusform>
            <numerusform>%Ln staplar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln task(s)</source>
        <translation>
            <numerusform>%Ln aktivitet</numerusform>
            <numerusform>%Ln aktiviteter</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln milestone(s)</source>
        <translation>
            <numerusform>%Ln milstolpe</numerusform>
            <numerusform>%Ln milstolpar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln link(s)</source>
        <translation>
            <numerusform>%Ln länk</numerusform>
            <numerusform>%Ln länkar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln resource(s)</source>
        <translation>
            <numerusform>%Ln resurs</numerusform>
            <numerusform>%Ln resurser</numerusform>
        </translation>
    </message>
    <message>
        <source>pictures are .png, .pdf or .svg files</source>
        <translation>bilder är .png-, .pdf- eller .svg-filer</translation>
    </message>
    <message>
        <source>the picture could not be drawn</source>
        <translation>bilden kunde inte ritas</translation>
    </message>
    <message>
        <source>PNG image (*.png);;PDF document (*.pdf);;SVG drawing (*.svg)</source>
        <translation>PNG-bild (*.png);;PDF-dokument (*.pdf);;SVG-teckning (*.svg)</translation>
    </message>
    <message>
        <source>Partition %1</source>
        <translation>Partition %1</translation>
    </message>
    <message>
        <source>No partition</source>
        <translation>Ingen partition</translation>
    </message>
    <message>
        <source>partition %1</source>
        <translation>partition %1</translation>
    </message>
    <message>
        <source>Queue %1</source>
        <translation>Kö %1</translation>
    </message>
    <message>
        <source>No queue</source>
        <translation>Ingen kö</translation>
    </message>
    <message>
        <source>queue %1</source>
        <translation>kö %1</translation>
    </message>
    <message>
        <source>User %1</source>
        <translation>Användare %1</translation>
    </message>
    <message>
        <source>No user</source>
        <translation>Ingen användare</translation>
    </message>
    <message>
        <source>user %1</source>
        <translation>användare %1</translation>
    </message>
    <message>
        <source>Group %1</source>
        <translation>Grupp %1</translation>
    </message>
    <message>
        <source>No group</source>
        <translation>Ingen grupp</translation>
    </message>
    <message>
        <source>group %1</source>
        <translation>grupp %1</translation>
    </message>
    <message>
        <source>waited %1 s</source>
        <translation>väntade %1 s</translation>
    </message>
    <message>
        <source>the trace has no jobs that can be shown</source>
        <translation>loggen har inga jobb som kan visas</translation>
    </message>
    <message>
        <source>a row of a job trace is a node, partition, queue, user or group, not a %1</source>
        <translation>en rad i en jobblogg är node, partition, queue, user eller group, inte %1</translation>
    </message>
    <message>
        <source>too many nodes to have a row each</source>
        <translation>för många noder för varsin rad</translation>
    </message>
    <message>
        <source>the line is too long for a job trace</source>
        <translation>raden är för lång för en jobblogg</translation>
    </message>
    <message>
        <source>The line is not one of %1 numbers; it is ignored.</source>
        <translation>Raden består inte av %1 tal; den ignoreras.</translation>
    </message>
    <message>
        <source>The job has no run time; it is left out.</source>
        <translation>Jobbet har ingen körtid; det utelämnas.</translation>
    </message>
    <message>
        <source>The job&apos;s times make no sense; it is left out.</source>
        <translation>Jobbets tider är orimliga; det utelämnas.</translation>
    </message>
    <message>
        <source>more than %1 jobs</source>
        <translation>mer än %1 jobb</translation>
    </message>
    <message>
        <source>Node %1</source>
        <translation>Nod %1</translation>
    </message>
    <message>
        <source>Job %1</source>
        <translation>Jobb %1</translation>
    </message>
    <message numerus="yes">
        <source>%n processor(s)</source>
        <translation>
            <numerusform>%n processor</numerusform>
            <numerusform>%n processorer</numerusform>
        </translation>
    </message>
    <message>
        <source>Job trace</source>
        <translation>Jobblogg</translation>
    </message>
    <message>
        <source>the table is empty</source>
        <translation>tabellen är tom</translation>
    </message>
    <message>
        <source>there is no column %1</source>
        <translation>det finns ingen kolumn %1</translation>
    </message>
    <message>
        <source>the record is longer than %1 bytes; is a quote missing?</source>
        <translation>posten är längre än %1 byte; saknas ett citattecken?</translation>
    </message>
    <message>
        <source>the record has more than %1 fields</source>
        <translation>posten har fler än %1 fält</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>filen är för stor</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>filen finns inte</translation>
    </message>
    <message>
        <source>a folder, not a file</source>
        <translation>en mapp, ingen fil</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>filen är tom</translation>
    </message>
    <message>
        <source>The calendar has no working day; all days count.</source>
        <translation>Kalendern har ingen arbetsdag; alla dagar räknas.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a year.</source>
        <translation>”%1” är inget år.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a month.</source>
        <translation>”%1” är ingen månad.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day.</source>
        <translation>”%1” är ingen dag.</translation>
    </message>
    <message>
        <source>the root element is not a &lt;project&gt; without a namespace</source>
        <translation>rotelementet är inte ett &lt;project&gt; utan namnrymd</translation>
    </message>
    <message>
        <source>What follows the end of the project is not well-formed; it is ignored.</source>
        <translation>Det som följer efter projektets slut är inte välformat; det ignoreras.</translation>
    </message>
    <message>
        <source>no project plan: there is no &lt;tasks&gt; element</source>
        <translation>ingen projektplan: elementet &lt;tasks&gt; saknas</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a duration.</source>
        <translation>”%1” är ingen varaktighet.</translation>
    </message>
    <message>
        <source>A link has no known type; it is taken as finish to start.</source>
        <translation>En länk har ingen känd typ; den tas som slut till start.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a lag.</source>
        <translation>”%1” är ingen fördröjning.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a load.</source>
        <translation>”%1” är ingen belastning.</translation>
    </message>
    <message>
        <source>decompression cannot be started</source>
        <translation>uppackningen kan inte startas</translation>
    </message>
    <message>
        <source>the compressed data ends too early</source>
        <translation>komprimerade data slutar för tidigt</translation>
    </message>
    <message>
        <source>the compressed data is damaged</source>
        <translation>komprimerade data är skadade</translation>
    </message>
    <message>
        <source>more than %1 MB after decompression</source>
        <translation>mer än %1 MB efter uppackning</translation>
    </message>
    <message>
        <source>days</source>
        <translation>dagar</translation>
    </message>
    <message>
        <source>day</source>
        <translation>dag</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>timmar</translation>
    </message>
    <message>
        <source>hour</source>
        <translation>timme</translation>
    </message>
    <message>
        <source>minutes</source>
        <translation>minuter</translation>
    </message>
    <message>
        <source>minute</source>
        <translation>minut</translation>
    </message>
    <message>
        <source>elapsed days</source>
        <translation>kalenderdagar</translation>
    </message>
    <message>
        <source>elapsed day</source>
        <translation>kalenderdag</translation>
    </message>
    <message>
        <source>elapsed hours</source>
        <translation>kalendertimmar</translation>
    </message>
    <message>
        <source>elapsed hour</source>
        <translation>kalendertimme</translation>
    </message>
    <message>
        <source>elapsed minutes</source>
        <translation>kalenderminuter</translation>
    </message>
    <message>
        <source>elapsed minute</source>
        <translation>kalenderminut</translation>
    </message>
    <message>
        <source>elapsed %</source>
        <translation>% kalendertid</translation>
    </message>
    <message>
        <source>Finish to start</source>
        <translation>Slut till start</translation>
    </message>
    <message>
        <source>Start to start</source>
        <translation>Start till start</translation>
    </message>
    <message>
        <source>Finish to finish</source>
        <translation>Slut till slut</translation>
    </message>
    <message>
        <source>Start to finish</source>
        <translation>Start till slut</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day type.</source>
        <translation>”%1” är ingen dagtyp.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a recurrence.</source>
        <translation>”%1” är ingen upprepning.</translation>
    </message>
    <message>
        <source>the root element is &lt;%1&gt;, not &lt;Project&gt;</source>
        <translation>rotelementet är &lt;%1&gt;, inte &lt;Project&gt;</translation>
    </message>
    <message>
        <source>another schema: the namespace is &quot;%1&quot;, not &quot;%2&quot;</source>
        <translation>ett annat schema: namnrymden är ”%1”, inte ”%2”</translation>
    </message>
    <message>
        <source>no project plan: there is no &lt;Tasks&gt; element</source>
        <translation>ingen projektplan: elementet &lt;Tasks&gt; saknas</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an outline level.</source>
        <translation>”%1” är ingen dispositionsnivå.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a baseline number.</source>
        <translation>”%1” är inget baslinjenummer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a type of link; it is taken as finish to start.</source>
        <translation>”%1” är ingen länktyp; den tas som slut till start.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a lag format.</source>
        <translation>”%1” är inget fördröjningsformat.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of units.</source>
        <translation>”%1” är inget antal enheter.</translation>
    </message>
    <message>
        <source>Project XML</source>
        <translation>Projekt-XML</translation>
    </message>
    <message>
        <source>what the plan was read from is damaged</source>
        <translation>det som planen lästes från är skadat</translation>
    </message>
    <message>
        <source>not everything could be written; the disk may be full</source>
        <translation>allt kunde inte skrivas; disken kan vara full</translation>
    </message>
    <message>
        <source>without a name</source>
        <translation>utan namn</translation>
    </message>
    <message>
        <source>none</source>
        <comment>no UID</comment>
        <translation>inget</translation>
    </message>
    <message>
        <source>The project name has %1 characters; the first %2 are kept.</source>
        <translation>Projektnamnet har %1 tecken; de första %2 behålls.</translation>
    </message>
    <message>
        <source>Around the clock</source>
        <translation>Dygnet runt</translation>
    </message>
    <message>
        <source>more than %1 characters of names and notes</source>
        <translation>mer än %1 tecken i namn och anteckningar</translation>
    </message>
    <message>
        <source>more than %1 tasks</source>
        <translation>fler än %1 aktiviteter</translation>
    </message>
    <message>
        <source>The task name has %1 characters; the first %2 are kept.</source>
        <translation>Aktivitetsnamnet har %1 tecken; de första %2 behålls.</translation>
    </message>
    <message>
        <source>Task %1 has no usable UID.</source>
        <translation>Aktiviteten %1 har inget användbart UID.</translation>
    </message>
    <message>
        <source>Task UID %1 is used again by %2; links go to its first task.</source>
        <translation>Aktivitets-UID %1 används igen av %2; länkar går till den första aktiviteten.</translation>
    </message>
    <message>
        <source>The outline has more than %1 levels; deeper tasks are shown at that level.</source>
        <translation>Dispositionen har mer än %1 nivåer; djupare aktiviteter visas på den nivån.</translation>
    </message>
    <message>
        <source>The outline level jumps from %1 to %2; task %3 is shown at level %4.</source>
        <translation>Dispositionsnivån hoppar från %1 till %2; aktiviteten %3 visas på nivå %4.</translation>
    </message>
    <message>
        <source>Task %1 finishes before it starts; it is shown from %2 to %3.</source>
        <translation>Aktiviteten %1 slutar innan den börjar; den visas från %2 till %3.</translation>
    </message>
    <message>
        <source>The note has %1 characters; the first %2 are kept.</source>
        <translation>Anteckningen har %1 tecken; de första %2 behålls.</translation>
    </message>
    <message>
        <source>more than %1 links</source>
        <translation>fler än %1 länkar</translation>
    </message>
    <message>
        <source>more than %1 resources</source>
        <translation>fler än %1 resurser</translation>
    </message>
    <message>
        <source>The resource name has %1 characters; the first %2 are kept.</source>
        <translation>Resursnamnet har %1 tecken; de första %2 behålls.</translation>
    </message>
    <message>
        <source>Resource UID %1 is used again by %2.</source>
        <translation>Resurs-UID %1 används igen av %2.</translation>
    </message>
    <message>
        <source>more than %1 assignments</source>
        <translation>fler än %1 tilldelningar</translation>
    </message>
    <message>
        <source>Task %1 has no usable dates; it has no bar.</source>
        <translation>Aktiviteten %1 har inga användbara datum; den får ingen stapel.</translation>
    </message>
    <message>
        <source>Task %1 has a link with an unknown task (UID %2); it is left out.</source>
        <translation>Aktiviteten %1 har en länk till en okänd aktivitet (UID %2); länken utelämnas.</translation>
    </message>
    <message>
        <source>Task %1 is linked with itself.</source>
        <translation>Aktiviteten %1 är länkad till sig själv.</translation>
    </message>
    <message>
        <source>An assignment names an unknown resource (UID %1); it is left out.</source>
        <translation>En tilldelning anger en okänd resurs (UID %1); den utelämnas.</translation>
    </message>
    <message>
        <source>An assignment names an unknown task (UID %1); it is left out.</source>
        <translation>En tilldelning anger en okänd aktivitet (UID %1); den utelämnas.</translation>
    </message>
    <message numerus="yes">
        <source>The links of %n tasks lead in a circle, among them %1 and %2.</source>
        <translation>
            <numerusform>Länkarna för %n aktivitet går i cirkel, bland dem %1 och %2.</numerusform>
            <numerusform>Länkarna för %n aktiviteter går i cirkel, bland dem %1 och %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n task(s) with subtasks not marked as summary task(s); shown as such.</source>
        <translation>
            <numerusform>%n aktivitet med underaktiviteter är inte märkt som sammanfattning; den visas som en sådan.</numerusform>
            <numerusform>%n aktiviteter med underaktiviteter är inte märkta som sammanfattningar; de visas som sådana.</numerusform>
        </translation>
    </message>
    <message>
        <source>Tasks must lie between the years 1900 and 3999.</source>
        <translation>Aktiviteter måste ligga mellan åren 1900 och 3999.</translation>
    </message>
    <message>
        <source>unnamed task</source>
        <translation>namnlös aktivitet</translation>
    </message>
    <message>
        <source>A task needs a name.</source>
        <translation>En aktivitet behöver ett namn.</translation>
    </message>
    <message>
        <source>A name has %1 characters at most.</source>
        <translation>Ett namn har högst %1 tecken.</translation>
    </message>
    <message>
        <source>%1 would finish before it starts.</source>
        <translation>%1 skulle sluta innan den börjar.</translation>
    </message>
    <message>
        <source>%1 is a summary task: its subtasks make its length.</source>
        <translation>%1 är en sammanfattning: underaktiviteterna avgör längden.</translation>
    </message>
    <message>
        <source>%1 is a milestone: it has no length.</source>
        <translation>%1 är en milstolpe och har ingen längd.</translation>
    </message>
    <message>
        <source>%1 cannot be linked to itself.</source>
        <translation>%1 kan inte länkas till sig själv.</translation>
    </message>
    <message>
        <source>%1 cannot be linked to its own summary task %2.</source>
        <translation>%1 kan inte länkas till sin egen sammanfattning %2.</translation>
    </message>
    <message>
        <source>%1 is linked to %2 already.</source>
        <translation>%1 är redan länkad till %2.</translation>
    </message>
    <message>
        <source>A link from %1 to %2 would close a circle.</source>
        <translation>En länk från %1 till %2 skulle sluta en cirkel.</translation>
    </message>
    <message>
        <source>A plan has %1 links at most.</source>
        <translation>En plan har högst %1 länkar.</translation>
    </message>
    <message>
        <source>Select the tasks to be linked, two at least.</source>
        <translation>Markera minst två aktiviteter som ska länkas.</translation>
    </message>
    <message>
        <source>The numbers of tasks come from their order.</source>
        <translation>Aktiviteternas nummer följer av ordningen.</translation>
    </message>
    <message>
        <source>A plan has %1 tasks at most.</source>
        <translation>En plan har högst %1 aktiviteter.</translation>
    </message>
    <message>
        <source>An outline has %1 levels at most.</source>
        <translation>En disposition har högst %1 nivåer.</translation>
    </message>
    <message>
        <source>%1 cannot become a subtask of itself.</source>
        <translation>%1 kan inte bli underaktivitet till sig själv.</translation>
    </message>
    <message>
        <source>%1 cannot become a subtask of %2: they are linked.</source>
        <translation>%1 kan inte bli underaktivitet till %2: de är länkade.</translation>
    </message>
    <message>
        <source>%1 has no task before it to become its summary task.</source>
        <translation>%1 har ingen aktivitet före sig som kan bli sammanfattning.</translation>
    </message>
    <message>
        <source>%1 is at the top level already.</source>
        <translation>%1 ligger redan på översta nivån.</translation>
    </message>
    <message>
        <source>%1 is the first task of its level already.</source>
        <translation>%1 är redan först på sin nivå.</translation>
    </message>
    <message>
        <source>%1 is the last task of its level already.</source>
        <translation>%1 är redan sist på sin nivå.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date.</source>
        <translation>”%1” är inget datum.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date between 1899-12-30 and 4000-01-01.</source>
        <translation>”%1” är inget datum mellan 1899-12-30 och 4000-01-01.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a UID.</source>
        <translation>”%1” är inget UID.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a percentage.</source>
        <translation>”%1” är inget procenttal.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a percentage between 0 and 100.</source>
        <translation>”%1” är inget procenttal mellan 0 och 100.</translation>
    </message>
    <message>
        <source>not a plan of a known format</source>
        <translation>ingen plan i ett känt format</translation>
    </message>
    <message>
        <source>All plans (%1)</source>
        <translation>Alla planer (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alla filer (*)</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Rad %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... och %n till</numerusform>
            <numerusform>... och %n till</numerusform>
        </translation>
    </message>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>mappen %1 finns inte</translation>
    </message>
    <message>
        <source>the file is write-protected</source>
        <translation>filen är skrivskyddad</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>inte tillräckligt med minne</translation>
    </message>
    <message>
        <source>the file ends too early</source>
        <translation>filen slutar för tidigt</translation>
    </message>
    <message>
        <source>no XML element in the file</source>
        <translation>inget XML-element i filen</translation>
    </message>
    <message>
        <source>not well-formed XML: %1</source>
        <translation>inte välformad XML: %1</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr</translation>
    </message>
    <message>
        <source>number</source>
        <translation>nummer</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>name</source>
        <translation>namn</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>start</source>
        <translation>start</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Slut</translation>
    </message>
    <message>
        <source>finish</source>
        <translation>slut</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Varaktighet</translation>
    </message>
    <message>
        <source>duration</source>
        <translation>varaktighet</translation>
    </message>
    <message>
        <source>Predecessors</source>
        <translation>Föregångare</translation>
    </message>
    <message>
        <source>predecessors</source>
        <translation>föregångare</translation>
    </message>
    <message>
        <source>Resources</source>
        <translation>Resurser</translation>
    </message>
    <message>
        <source>resources</source>
        <translation>resurser</translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>Klart</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>färdigställande</translation>
    </message>
    <message>
        <source>%1 is no date. Type it like %2.</source>
        <translation>%1 är inget datum. Skriv det som %2.</translation>
    </message>
    <message>
        <source>%1 is no duration. Type it like 3d, 4h or 30m.</source>
        <translation>%1 är ingen varaktighet. Skriv den som 3d (dagar), 4h (timmar) eller 30m (minuter).</translation>
    </message>
    <message>
        <source>%1 is no lag. Type it like +2d, -4h or +50%.</source>
        <translation>%1 är ingen fördröjning. Skriv den som +2d, -4h eller +50%.</translation>
    </message>
    <message>
        <source>%1 is no predecessor. Type the number of the task, as in 4 or 4FS+2d.</source>
        <translation>%1 är ingen föregångare. Skriv aktivitetens nummer, som i 4 eller 4FS+2d.</translation>
    </message>
    <message>
        <source>There is no task %1.</source>
        <translation>Det finns ingen aktivitet %1.</translation>
    </message>
    <message>
        <source>Task %1 is named twice.</source>
        <translation>Aktivitet %1 anges två gånger.</translation>
    </message>
    <message>
        <source>%1 is no part of a resource. Type it like [50%].</source>
        <translation>%1 är ingen andel av en resurs. Skriv den som [50%].</translation>
    </message>
    <message>
        <source>There is no resource %1.</source>
        <translation>Det finns ingen resurs %1.</translation>
    </message>
    <message>
        <source>%1 is named twice.</source>
        <translation>%1 anges två gånger.</translation>
    </message>
    <message>
        <source>%1 is no percentage from 0 to 100.</source>
        <translation>%1 är inget procenttal från 0 till 100.</translation>
    </message>
    <message>
        <source>there is no %1</source>
        <translation>%1 saknas</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, rad %2: %3</translation>
    </message>
    <message>
        <source>frequencies.txt is not used: trips that are repeated are shown once.</source>
        <translation>frequencies.txt används inte: turer som upprepas visas en gång.</translation>
    </message>
    <message>
        <source>The route is there already; this line is ignored.</source>
        <translation>Linjen finns redan; raden ignoreras.</translation>
    </message>
    <message>
        <source>more than %1 trips</source>
        <translation>fler än %1 turer</translation>
    </message>
    <message>
        <source>The trip&apos;s route is unknown; it is left out.</source>
        <translation>Turens linje är okänd; turen utelämnas.</translation>
    </message>
    <message>
        <source>The trip is there already; this line is ignored.</source>
        <translation>Turen finns redan; raden ignoreras.</translation>
    </message>
    <message>
        <source>Block %1</source>
        <translation>Omlopp %1</translation>
    </message>
    <message>
        <source>The time is of an unknown trip.</source>
        <translation>Tiden hör till en okänd tur.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time; it is ignored.</source>
        <translation>”%1” är ingen tid och ignoreras.</translation>
    </message>
    <message>
        <source>The dates make no sense; this line is ignored.</source>
        <translation>Datumen är orimliga; raden ignoreras.</translation>
    </message>
    <message>
        <source>The exception makes no sense; it is ignored.</source>
        <translation>Undantaget är orimligt; det ignoreras.</translation>
    </message>
    <message>
        <source>Without a block</source>
        <translation>Utan omlopp</translation>
    </message>
    <message>
        <source>the trips name no vehicle blocks; a row can only be a route</source>
        <translation>turerna anger inga omlopp; en rad kan bara vara en linje</translation>
    </message>
    <message>
        <source>a row of a timetable is a block or a route, not a %1</source>
        <translation>en rad i en tidtabell är block eller route, inte %1</translation>
    </message>
    <message>
        <source>no trip runs on any day</source>
        <translation>ingen tur går någon dag</translation>
    </message>
    <message numerus="yes">
        <source>%n trip(s) longer than a day.</source>
        <translation>
            <numerusform>%n tur är längre än ett dygn.</numerusform>
            <numerusform>%n turer är längre än ett dygn.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n trip(s) without times left out.</source>
        <translation>
            <numerusform>%n tur utan tider utelämnad.</numerusform>
            <numerusform>%n turer utan tider utelämnade.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n trip(s) not in the week that is shown.</source>
        <translation>
            <numerusform>%n tur går inte under den visade veckan.</numerusform>
            <numerusform>%n turer går inte under den visade veckan.</numerusform>
        </translation>
    </message>
    <message>
        <source>no trip runs on that day</source>
        <translation>ingen tur går den dagen</translation>
    </message>
    <message>
        <source>Route %1, trip %2
%3 – %4, %5 stops</source>
        <translation>Linje %1, tur %2
%3 – %4, %5 hållplatser</translation>
    </message>
    <message>
        <source>Timetable</source>
        <translation>Tidtabell</translation>
    </message>
    <message>
        <source>a single text or comment of more than %1 characters</source>
        <translation>en enda text eller kommentar på mer än %1 tecken</translation>
    </message>
    <message>
        <source>a tag of more than %1 characters</source>
        <translation>en tagg på mer än %1 tecken</translation>
    </message>
    <message>
        <source>elements nested more than %1 deep</source>
        <translation>element nästlade mer än %1 nivåer</translation>
    </message>
    <message>
        <source>a tag with more than %1 attributes</source>
        <translation>en tagg med fler än %1 attribut</translation>
    </message>
    <message>
        <source>a document type of more than %1 characters</source>
        <translation>en dokumenttyp på mer än %1 tecken</translation>
    </message>
    <message>
        <source>a document type with declarations of its own, such as entities, is not accepted in a plan</source>
        <translation>en dokumenttyp med egna deklarationer, som entiteter, godtas inte i en plan</translation>
    </message>
    <message>
        <source>the zip archive is incomplete</source>
        <translation>zip-arkivet är ofullständigt</translation>
    </message>
    <message>
        <source>the zip archive&apos;s list of files is damaged</source>
        <translation>zip-arkivets fillista är skadad</translation>
    </message>
    <message>
        <source>%1 is encrypted or packed in an unknown way</source>
        <translation>%1 är krypterad eller packad på okänt sätt</translation>
    </message>
    <message>
        <source>%1 is cut off in the zip archive</source>
        <translation>%1 är avhuggen i zip-arkivet</translation>
    </message>
    <message>
        <source>Resource</source>
        <translation>Resurs</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Aktivitet</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n cell(s)</source>
        <translation>
            <numerusform>Klistra in %n cell</numerusform>
            <numerusform>Klistra in %n celler</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clear %n cell(s)</source>
        <translation>
            <numerusform>Töm %n cell</numerusform>
            <numerusform>Töm %n celler</numerusform>
        </translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>Byt namn på %1</translation>
    </message>
    <message>
        <source>Change %1 of %2</source>
        <translation>Ändra %1 för %2</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>Utskrift</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remark(s)</source>
        <translation>
            <numerusform>%Ln anmärkning</numerusform>
            <numerusform>%Ln anmärkningar</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>och %n till</numerusform>
            <numerusform>och %n till</numerusform>
        </translation>
    </message>
    <message>
        <source>Assigned beyond its limit of %1:</source>
        <translation>Belagd över gränsen %1:</translation>
    </message>
    <message>
        <source>Calendars (*.ics *.ics.gz);;Conference programmes (*.xml *.json)</source>
        <translation>Kalendrar (*.ics *.ics.gz);;Konferensprogram (*.xml *.json)</translation>
    </message>
    <message numerus="yes">
        <source>%Ln event(s)</source>
        <translation>
            <numerusform>%Ln händelse</numerusform>
            <numerusform>%Ln händelser</numerusform>
        </translation>
    </message>
    <message>
        <source>Week</source>
        <translation>Vecka</translation>
    </message>
    <message>
        <source>Work week</source>
        <translation>Arbetsvecka</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Dag</translation>
    </message>
    <message>
        <source>Day by place</source>
        <translation>Dag per plats</translation>
    </message>
    <message>
        <source>Day by calendar</source>
        <translation>Dag per kalender</translation>
    </message>
    <message numerus="yes">
        <source>%Ln room(s)</source>
        <translation>
            <numerusform>%Ln sal</numerusform>
            <numerusform>%Ln salar</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 hours, none of them working time</source>
        <translation>%1 timmar, inget av det arbetstid</translation>
    </message>
    <message>
        <source>%1 working day</source>
        <translation>%1 arbetsdag</translation>
    </message>
    <message>
        <source>%1 working days</source>
        <translation>%1 arbetsdagar</translation>
    </message>
    <message>
        <source>%1 (%2 %)</source>
        <translation>%1 (%2 %)</translation>
    </message>
    <message>
        <source>On</source>
        <comment>date of a milestone</comment>
        <translation>Den</translation>
    </message>
    <message>
        <source>Baseline</source>
        <translation>Baslinje</translation>
    </message>
    <message>
        <source>Deadline</source>
        <translation>Tidsgräns</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Ångra</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Ångra: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gör om</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Gör om: %1</translation>
    </message>
    <message>
        <source>&amp;Rows from, to:</source>
        <translation>Rader &amp;från, till:</translation>
    </message>
    <message>
        <source>&amp;Selected rows only</source>
        <translation>Bara &amp;markerade rader</translation>
    </message>
    <message>
        <source>Time axis also at the &amp;bottom</source>
        <translation>Tidsaxel även &amp;nedtill</translation>
    </message>
    <message>
        <source>Co&amp;lumns from, to:</source>
        <translation>Kolumner &amp;från, till:</translation>
    </message>
    <message>
        <source>Columns with &amp;selected events only</source>
        <translation>Bara kolumner med &amp;markerade händelser</translation>
    </message>
    <message>
        <source>Time axis also at the rig&amp;ht</source>
        <translation>Tidsaxel även till &amp;höger</translation>
    </message>
    <message>
        <source>Print at so many percent of the size on screen, instead of --fit.</source>
        <translation>Skriv ut i så många procent av skärmens storlek, i stället för --fit.</translation>
    </message>
    <message>
        <source>percent</source>
        <comment>value of an option</comment>
        <translation>procent</translation>
    </message>
    <message>
        <source>Enlarge what is smaller than its pages.</source>
        <translation>Förstora det som är mindre än sina sidor.</translation>
    </message>
    <message>
        <source>--scale needs percent, from %1 to %2</source>
        <translation>--scale kräver procent, från %1 till %2</translation>
    </message>
    <message>
        <source>--scale goes neither with --fit nor with --enlarge</source>
        <translation>--scale går varken med --fit eller med --enlarge</translation>
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
        <translation>Ångra</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Gör om</translation>
    </message>
    <message>
        <source>&amp;New task</source>
        <translation>&amp;Ny aktivitet</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>&amp;Byt namn</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Markera alla</translation>
    </message>
    <message>
        <source>&amp;Indent</source>
        <translation>Dra &amp;in</translation>
    </message>
    <message>
        <source>Alt+Shift+Right</source>
        <translation>Alt+Shift+Right</translation>
    </message>
    <message>
        <source>&amp;Outdent</source>
        <translation>Dra &amp;ut</translation>
    </message>
    <message>
        <source>Alt+Shift+Left</source>
        <translation>Alt+Shift+Left</translation>
    </message>
    <message>
        <source>Mo&amp;ve up</source>
        <translation>Flytta u&amp;pp</translation>
    </message>
    <message>
        <source>Alt+Shift+Up</source>
        <translation>Alt+Shift+Up</translation>
    </message>
    <message>
        <source>Move do&amp;wn</source>
        <translation>Flytta ne&amp;d</translation>
    </message>
    <message>
        <source>Alt+Shift+Down</source>
        <translation>Alt+Shift+Down</translation>
    </message>
    <message>
        <source>&amp;Link in order</source>
        <translation>&amp;Länka i ordning</translation>
    </message>
    <message>
        <source>Ctrl+F2</source>
        <translation>Ctrl+F2</translation>
    </message>
    <message>
        <source>Unlin&amp;k</source>
        <translation>Ta b&amp;ort länk</translation>
    </message>
    <message>
        <source>Ctrl+Shift+F2</source>
        <translation>Ctrl+Shift+F2</translation>
    </message>
    <message>
        <source>Edit link...</source>
        <translation>Redigera länk...</translation>
    </message>
    <message>
        <source>Draw link&amp;s</source>
        <translation>&amp;Rita länkar</translation>
    </message>
    <message>
        <source>Ctrl+L</source>
        <translation>Ctrl+L</translation>
    </message>
    <message>
        <source>Drag from a task to the one that follows it.</source>
        <translation>Dra från en aktivitet till den som följer efter.</translation>
    </message>
    <message>
        <source>Move &amp;earlier</source>
        <translation>Tidigar&amp;e</translation>
    </message>
    <message>
        <source>Ctrl+Left</source>
        <translation>Ctrl+Left</translation>
    </message>
    <message>
        <source>Move la&amp;ter</source>
        <translation>&amp;Senare</translation>
    </message>
    <message>
        <source>Ctrl+Right</source>
        <translation>Ctrl+Right</translation>
    </message>
    <message>
        <source>Task &amp;properties...</source>
        <translation>Aktivitetsegens&amp;kaper...</translation>
    </message>
    <message>
        <source>Alt+Return</source>
        <translation>Alt+Return</translation>
    </message>
    <message>
        <source>Select the link, or the two tasks that it joins.</source>
        <translation>Markera länken, eller de två aktiviteter som den förbinder.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::EventDialog</name>
    <message>
        <source>&amp;All day</source>
        <translation>&amp;Heldag</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Händelse</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>&amp;Location</source>
        <translation>&amp;Plats</translation>
    </message>
    <message>
        <source>&amp;Calendar</source>
        <translation>&amp;Kalender</translation>
    </message>
    <message>
        <source>&amp;Description</source>
        <translation>&amp;Beskrivning</translation>
    </message>
    <message>
        <source>Those of the series</source>
        <translation>Seriens</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>&amp;End</source>
        <translation>&amp;Slut</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy</source>
        <translation>ddd d MMM yyyy</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy  HH:mm</source>
        <translation>ddd d MMM yyyy  HH:mm</translation>
    </message>
    <message>
        <source>The event ends before it starts.</source>
        <translation>Händelsen slutar innan den börjar.</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Aldrig</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Varje dag</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Varje vecka</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Varje månad</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>Varje år</translation>
    </message>
    <message>
        <source>By a rule of its own</source>
        <translation>Efter en egen regel</translation>
    </message>
    <message>
        <source>every </source>
        <translation>var </translation>
    </message>
    <message>
        <source>for ever</source>
        <translation>utan slut</translation>
    </message>
    <message>
        <source>so many times:</source>
        <translation>så många gånger:</translation>
    </message>
    <message>
        <source>until:</source>
        <translation>till:</translation>
    </message>
    <message>
        <source>&amp;Repeats</source>
        <translation>&amp;Upprepas</translation>
    </message>
    <message>
        <source>days</source>
        <translation>dagar</translation>
    </message>
    <message>
        <source>weeks</source>
        <translation>veckor</translation>
    </message>
    <message>
        <source>months</source>
        <translation>månader</translation>
    </message>
    <message>
        <source>years</source>
        <translation>år</translation>
    </message>
</context>
<context>
    <name>korvane::planner::LinkDialog</name>
    <message>
        <source>Link properties</source>
        <translation>Länkegenskaper</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Från</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Till</translation>
    </message>
    <message>
        <source>&amp;Type</source>
        <translation>&amp;Typ</translation>
    </message>
    <message>
        <source>&amp;Lag</source>
        <translation>&amp;Fördröjning</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>T&amp;a bort</translation>
    </message>
    <message>
        <source>Negative where the tasks overlap.</source>
        <translation>Negativ när aktiviteterna överlappar.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::LoadProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
</context>
<context>
    <name>korvane::planner::MainWindow</name>
    <message>
        <source>Open a plan with Ctrl+O, or drop a file here.</source>
        <translation>Öppna en plan med Ctrl+O, eller släpp en fil här.</translation>
    </message>
    <message>
        <source>Planner</source>
        <translation>Planerare</translation>
    </message>
    <message>
        <source>No copy could be kept: %1</source>
        <translation>Ingen kopia kunde sparas: %1</translation>
    </message>
    <message>
        <source>%1[*] – Planner</source>
        <translation>%1[*] – Planerare</translation>
    </message>
    <message>
        <source>%1 (%2)[*] – Planner</source>
        <translation>%1 (%2)[*] – Planerare</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>%1 kan inte skrivas.</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>Öppnar %1</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kan inte öppnas.</translation>
    </message>
    <message>
        <source>There are changes of %1 that were not saved.</source>
        <translation>Det finns ändringar av %1 som inte sparades.</translation>
    </message>
    <message>
        <source>The planner ended without saving; a copy of %1 has been kept. Recover it?</source>
        <translation>Planeraren avslutades utan att spara; en kopia från %1 finns kvar. Ska den återställas?</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Återställ</translation>
    </message>
    <message>
        <source>&amp;Discard the copy</source>
        <translation>&amp;Kasta kopian</translation>
    </message>
    <message>
        <source>Save the changes of %1?</source>
        <translation>Spara ändringarna i %1?</translation>
    </message>
    <message>
        <source>They are lost otherwise.</source>
        <translation>Annars går de förlorade.</translation>
    </message>
    <message>
        <source>%1 is open in another planner.</source>
        <translation>%1 är öppen i en annan planerare.</translation>
    </message>
    <message>
        <source>Save the plan under another name, or close it there first.</source>
        <translation>Spara planen under ett annat namn, eller stäng den där först.</translation>
    </message>
    <message>
        <source>%1 has been changed by another program.</source>
        <translation>%1 har ändrats av ett annat program.</translation>
    </message>
    <message>
        <source>Saving overwrites what has been changed there.</source>
        <translation>Om du sparar skrivs ändringarna där över.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Skriv &amp;över</translation>
    </message>
    <message>
        <source>Save the plan</source>
        <translation>Spara planen</translation>
    </message>
    <message>
        <source>Project XML (*.xml *.xml.gz)</source>
        <translation>Projekt-XML (*.xml *.xml.gz)</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>Sparar %1</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>%1 kan inte sparas.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Arkiv</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Öppna...</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>Öppna &amp;tidigare</translation>
    </message>
    <message>
        <source>Open the sa&amp;mple plan</source>
        <translation>Öppna &amp;exempelplanen</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>&amp;Läs om</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Spara</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Spara s&amp;om...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>Save as p&amp;icture...</source>
        <translation>Spara som &amp;bild...</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Avsluta</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Redigera</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Visa</translation>
    </message>
    <message>
        <source>&amp;Fit the plan</source>
        <translation>Anpassa &amp;planen</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Zooma &amp;in</translation>
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
        <translation>Zooma &amp;ut</translation>
    </message>
    <message>
        <source>Ctrl+-</source>
        <translation>Ctrl+-</translation>
    </message>
    <message>
        <source>Go to toda&amp;y</source>
        <translation>Gå till i &amp;dag</translation>
    </message>
    <message>
        <source>Ctrl+T</source>
        <translation>Ctrl+T</translation>
    </message>
    <message>
        <source>&amp;Earlier</source>
        <translation>Tidi&amp;gare</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>S&amp;enare</translation>
    </message>
    <message>
        <source>Ctrl+PgDown</source>
        <translation>Ctrl+PgDown</translation>
    </message>
    <message>
        <source>E&amp;xpand all</source>
        <translation>E&amp;xpandera alla</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Right</source>
        <translation>Ctrl+Shift+Right</translation>
    </message>
    <message>
        <source>&amp;Collapse all</source>
        <translation>&amp;Fäll ihop alla</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Left</source>
        <translation>Ctrl+Shift+Left</translation>
    </message>
    <message>
        <source>Ta&amp;ble</source>
        <translation>Ta&amp;bell</translation>
    </message>
    <message>
        <source>Ctrl+3</source>
        <translation>Ctrl+3</translation>
    </message>
    <message>
        <source>Table col&amp;umns</source>
        <translation>Tabellk&amp;olumner</translation>
    </message>
    <message>
        <source>B&amp;aselines</source>
        <translation>Bas&amp;linjer</translation>
    </message>
    <message>
        <source>&amp;Deadlines</source>
        <translation>&amp;Tidsgränser</translation>
    </message>
    <message>
        <source>Re&amp;marks</source>
        <translation>&amp;Anmärkningar</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hjälp</translation>
    </message>
    <message>
        <source>&amp;Keys and wheel</source>
        <translation>&amp;Tangenter och mushjul</translation>
    </message>
    <message>
        <source>&amp;About the planner</source>
        <translation>&amp;Om planeraren</translation>
    </message>
    <message>
        <source>About &amp;Qt</source>
        <translation>Om &amp;Qt</translation>
    </message>
    <message>
        <source>Open a plan</source>
        <translation>Öppna en plan</translation>
    </message>
    <message>
        <source>Save as picture</source>
        <translation>Spara som bild</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Mushjul</translation>
    </message>
    <message>
        <source>Scroll the rows</source>
        <translation>Rulla raderna</translation>
    </message>
    <message>
        <source>Ctrl + wheel</source>
        <translation>Ctrl + mushjul</translation>
    </message>
    <message>
        <source>Zoom about the pointer</source>
        <translation>Zooma kring pekaren</translation>
    </message>
    <message>
        <source>Shift + wheel</source>
        <translation>Skift + mushjul</translation>
    </message>
    <message>
        <source>Earlier or later</source>
        <translation>Tidigare eller senare</translation>
    </message>
    <message>
        <source>Keys and wheel</source>
        <translation>Tangenter och mushjul</translation>
    </message>
    <message>
        <source>About the planner</source>
        <translation>Om planeraren</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Planner %1&lt;/h3&gt;&lt;p&gt;Shows project plans as Gantt charts: project XML files (.xml, .xml.gz), GanttProject files (.gan), timetables (.zip, or a folder of GTFS tables) and job traces (.swf).&lt;/p&gt;&lt;p&gt;Built with Korvane, a library of visual components for planning and scheduling.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Planerare %1&lt;/h3&gt;&lt;p&gt;Visar projektplaner som ganttscheman: projekt-XML-filer (.xml, .xml.gz), GanttProject-filer (.gan), tidtabeller (.zip eller en mapp med GTFS-tabeller) och jobbloggar (.swf).&lt;/p&gt;&lt;p&gt;Byggd med Korvane, ett bibliotek med visuella komponenter för planering och schemaläggning.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PlanChart</name>
    <message>
        <source>Link	Finish to start</source>
        <translation>Länk	Slut till start</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PlanEdits</name>
    <message numerus="yes">
        <source>%n tasks</source>
        <translation>
            <numerusform>%n aktivitet</numerusform>
            <numerusform>%n aktiviteter</numerusform>
        </translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>Flytta %1</translation>
    </message>
    <message>
        <source>Resize %1</source>
        <translation>Ändra längd på %1</translation>
    </message>
    <message>
        <source>Rename %1</source>
        <translation>Byt namn på %1</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>Ändra %1</translation>
    </message>
    <message>
        <source>Insert task</source>
        <translation>Infoga aktivitet</translation>
    </message>
    <message>
        <source>New task</source>
        <translation>Ny aktivitet</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Ta bort %1</translation>
    </message>
    <message>
        <source>Copy %1</source>
        <translation>Kopiera %1</translation>
    </message>
    <message>
        <source>Move %1 into %2</source>
        <translation>Flytta in %1 i %2</translation>
    </message>
    <message>
        <source>Rearrange %1</source>
        <translation>Ordna om %1</translation>
    </message>
    <message>
        <source>Indent %1</source>
        <translation>Dra in %1</translation>
    </message>
    <message>
        <source>Outdent %1</source>
        <translation>Dra ut %1</translation>
    </message>
    <message>
        <source>Move %1 up</source>
        <translation>Flytta upp %1</translation>
    </message>
    <message>
        <source>Move %1 down</source>
        <translation>Flytta ned %1</translation>
    </message>
    <message>
        <source>Link %1 to %2</source>
        <translation>Länka %1 till %2</translation>
    </message>
    <message numerus="yes">
        <source>Link %n tasks</source>
        <translation>
            <numerusform>Länka %n aktivitet</numerusform>
            <numerusform>Länka %n aktiviteter</numerusform>
        </translation>
    </message>
    <message>
        <source>Unlink %1 and %2</source>
        <translation>Ta bort länken mellan %1 och %2</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n links</source>
        <translation>
            <numerusform>Ta bort %n länk</numerusform>
            <numerusform>Ta bort %n länkar</numerusform>
        </translation>
    </message>
    <message>
        <source>Change the link of %1 and %2</source>
        <translation>Ändra länken mellan %1 och %2</translation>
    </message>
    <message>
        <source>There are no links between the selected tasks.</source>
        <translation>Det finns inga länkar mellan de markerade aktiviteterna.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PrintActions</name>
    <message>
        <source>Print pre&amp;view...</source>
        <translation>&amp;Förhandsgranska...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+P</source>
        <translation>Ctrl+Shift+P</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>Skriv &amp;ut...</translation>
    </message>
    <message>
        <source>E&amp;xport pages...</source>
        <translation>E&amp;xportera sidor...</translation>
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
        <translation>Förhandsgranskning</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>Skriv &amp;ut...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportera...</translation>
    </message>
    <message>
        <source>Page before</source>
        <translation>Föregående sida</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nästa sida</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Whole page</source>
        <translation>Hela sidan</translation>
    </message>
    <message>
        <source>Page width</source>
        <translation>Sidbredd</translation>
    </message>
    <message>
        <source>Resolution of PNG pictures</source>
        <translation>Upplösning för PNG-bilder</translation>
    </message>
    <message>
        <source>%1 dpi</source>
        <translation>%1 dpi</translation>
    </message>
    <message>
        <source>No pages</source>
        <translation>Inga sidor</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Sida %1 av %2</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportera</translation>
    </message>
    <message>
        <source>PDF document (*.pdf);;SVG pictures (*.svg);;PNG pictures (*.png)</source>
        <translation>PDF-dokument (*.pdf);;SVG-bilder (*.svg);;PNG-bilder (*.png)</translation>
    </message>
    <message>
        <source>Zoo&amp;m:</source>
        <translation>Zoo&amp;m:</translation>
    </message>
    <message>
        <source>PNG p&amp;ictures:</source>
        <translation>PNG-b&amp;ilder:</translation>
    </message>
</context>
<context>
    <name>korvane::planner::PrintForm</name>
    <message>
        <source>Other size</source>
        <translation>Annan storlek</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>S&amp;torlek:</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Stående</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Liggande</translation>
    </message>
    <message>
        <source>&amp;Orientation:</source>
        <translation>&amp;Orientering:</translation>
    </message>
    <message>
        <source>Left margin</source>
        <translation>Vänstermarginal</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>Övre marginal</translation>
    </message>
    <message>
        <source>Right margin</source>
        <translation>Högermarginal</translation>
    </message>
    <message>
        <source>Bottom margin</source>
        <translation>Nedre marginal</translation>
    </message>
    <message>
        <source>Percent of the screen&apos;s</source>
        <translation>Procent av skärmens</translation>
    </message>
    <message>
        <source>Fit to one page&apos;s width</source>
        <translation>Anpassa till en sidbredd</translation>
    </message>
    <message>
        <source>Fit to one page&apos;s height</source>
        <translation>Anpassa till en sidhöjd</translation>
    </message>
    <message>
        <source>Fit to pages</source>
        <translation>Anpassa till antal sidor</translation>
    </message>
    <message>
        <source>&amp;Scale:</source>
        <translation>&amp;Skala:</translation>
    </message>
    <message>
        <source>by</source>
        <translation>gånger</translation>
    </message>
    <message>
        <source>Pages across, at most</source>
        <translation>Sidor i bredd, högst</translation>
    </message>
    <message>
        <source>Pages down, at most</source>
        <translation>Sidor i höjd, högst</translation>
    </message>
    <message>
        <source>any</source>
        <translation>valfritt</translation>
    </message>
    <message>
        <source>Repeat &amp;headings of groups on every page</source>
        <translation>Upprepa gruppernas &amp;rubriker på varje sida</translation>
    </message>
    <message>
        <source>&amp;Days from, to:</source>
        <translation>&amp;Dagar från, till:</translation>
    </message>
    <message>
        <source>{title}, {file}, {date}, {time}, {range}, {page} and {pages} are filled in.</source>
        <translation>{title}, {file}, {date}, {time}, {range}, {page} och {pages} fylls i.</translation>
    </message>
    <message>
        <source>Pap&amp;er</source>
        <translation>Papp&amp;er</translation>
    </message>
    <message>
        <source>Co&amp;ntent</source>
        <translation>I&amp;nnehåll</translation>
    </message>
    <message>
        <source>Texts and mar&amp;ks</source>
        <translation>Texter och mär&amp;ken</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Bredd:</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Höjd:</translation>
    </message>
    <message>
        <source>Margins &amp;left, right:</source>
        <translation>Marginaler &amp;vänster, höger:</translation>
    </message>
    <message>
        <source>top, &amp;bottom:</source>
        <translation>över, &amp;under:</translation>
    </message>
    <message>
        <source>Pe&amp;rcent:</source>
        <translation>P&amp;rocent:</translation>
    </message>
    <message>
        <source>Pages, &amp;up to:</source>
        <translation>Sidor, upp &amp;till:</translation>
    </message>
    <message>
        <source>Enlar&amp;ge as well</source>
        <translation>&amp;Även förstora</translation>
    </message>
    <message>
        <source>Co&amp;lumns:</source>
        <translation>Ko&amp;lumner:</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Första dagen</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Sista dagen</translation>
    </message>
    <message>
        <source>The first one</source>
        <translation>Den första</translation>
    </message>
    <message>
        <source>The last one</source>
        <translation>Den sista</translation>
    </message>
    <message>
        <source>Header &amp;left:</source>
        <translation>Sidhuvud &amp;vänster:</translation>
    </message>
    <message>
        <source>cen&amp;tre:</source>
        <translation>mit&amp;ten:</translation>
    </message>
    <message>
        <source>ri&amp;ght:</source>
        <translation>hö&amp;ger:</translation>
    </message>
    <message>
        <source>&amp;Footer left:</source>
        <translation>Sid&amp;fot vänster:</translation>
    </message>
    <message>
        <source>cent&amp;re:</source>
        <translation>mitte&amp;n:</translation>
    </message>
    <message>
        <source>rig&amp;ht:</source>
        <translation>&amp;höger:</translation>
    </message>
    <message>
        <source>Cr&amp;op marks</source>
        <translation>&amp;Skärmärken</translation>
    </message>
    <message>
        <source>Marks for gl&amp;uing pages together</source>
        <translation>Märken för h&amp;opklistring av sidor</translation>
    </message>
    <message>
        <source>Times of &amp;day from, to:</source>
        <translation>Kl&amp;ockslag från, till:</translation>
    </message>
    <message>
        <source>Begins at</source>
        <translation>Börjar</translation>
    </message>
    <message>
        <source>Ends at</source>
        <translation>Slutar</translation>
    </message>
</context>
<context>
    <name>korvane::planner::RecentFiles</name>
    <message>
        <source>No files yet</source>
        <translation>Inga filer än</translation>
    </message>
    <message>
        <source>&amp;Clear list</source>
        <translation>&amp;Töm listan</translation>
    </message>
</context>
<context>
    <name>korvane::planner::RemarksPanel</name>
    <message>
        <source>Remarks</source>
        <translation>Anmärkningar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ResourceChart</name>
    <message>
        <source>Unassigned</source>
        <translation>Ej tilldelade</translation>
    </message>
    <message>
        <source>Resource %1</source>
        <translation>Resurs %1</translation>
    </message>
    <message>
        <source>%1 – %2 %</source>
        <translation>%1 – %2 %</translation>
    </message>
    <message>
        <source>%1 – %2 of %3 %</source>
        <translation>%1 – %2 av %3 %</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ScheduleDocument</name>
    <message>
        <source>Copy %1</source>
        <translation>Kopiera %1</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>Ta bort %1</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>Ändra %1</translation>
    </message>
    <message>
        <source>New event “%1”</source>
        <translation>Ny händelse ”%1”</translation>
    </message>
    <message>
        <source>Paste “%1”</source>
        <translation>Klistra in ”%1”</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n events</source>
        <translation>
            <numerusform>Klistra in %n händelse</numerusform>
            <numerusform>Klistra in %n händelser</numerusform>
        </translation>
    </message>
    <message>
        <source>Calendar %1</source>
        <translation>Kalender %1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>Flytta %1</translation>
    </message>
    <message>
        <source>Stretch %1</source>
        <translation>Ändra längd på %1</translation>
    </message>
    <message numerus="yes">
        <source>%n events</source>
        <translation>
            <numerusform>%n händelse</numerusform>
            <numerusform>%n händelser</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>”%1”</translation>
    </message>
    <message>
        <source>%1 and those that follow</source>
        <translation>%1 och de som följer</translation>
    </message>
    <message>
        <source>all of %1</source>
        <translation>alla %1</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ScheduleStrip</name>
    <message>
        <source>All day</source>
        <translation>Heldag</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ScheduleWindow</name>
    <message>
        <source>Planner</source>
        <translation>Planerare</translation>
    </message>
    <message>
        <source>%1 – Planner</source>
        <translation>%1 – Planerare</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>Öppnar %1</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kan inte öppnas.</translation>
    </message>
    <message>
        <source>%1[*] – Planner</source>
        <translation>%1[*] – Planerare</translation>
    </message>
    <message>
        <source>%1 (%2)[*] – Planner</source>
        <translation>%1 (%2)[*] – Planerare</translation>
    </message>
    <message>
        <source>%1 has been changed by another program.</source>
        <translation>%1 har ändrats av ett annat program.</translation>
    </message>
    <message>
        <source>Saving overwrites what has been changed there.</source>
        <translation>Om du sparar skrivs ändringarna där över.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Skriv &amp;över</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>%1 kan inte sparas.</translation>
    </message>
    <message>
        <source>%1 has been saved.</source>
        <translation>%1 har sparats.</translation>
    </message>
    <message>
        <source>Save the calendar</source>
        <translation>Spara kalendern</translation>
    </message>
    <message>
        <source>Calendars (*.ics *.ics.gz)</source>
        <translation>Kalendrar (*.ics *.ics.gz)</translation>
    </message>
    <message>
        <source>Save the changes of %1?</source>
        <translation>Spara ändringarna i %1?</translation>
    </message>
    <message>
        <source>They are lost otherwise.</source>
        <translation>Annars går de förlorade.</translation>
    </message>
    <message>
        <source>   times of %1</source>
        <translation>   tider i %1</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>K&amp;lipp ut</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Klistra in</translation>
    </message>
    <message>
        <source>D&amp;uplicate</source>
        <translation>&amp;Duplicera</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>&amp;New event…</source>
        <translation>&amp;Ny händelse…</translation>
    </message>
    <message>
        <source>&amp;Edit event…</source>
        <translation>Red&amp;igera händelse…</translation>
    </message>
    <message>
        <source>“%1” is repeated. What is to be changed?</source>
        <translation>”%1” upprepas. Vad ska ändras?</translation>
    </message>
    <message>
        <source>&amp;This occurrence</source>
        <translation>&amp;Den här förekomsten</translation>
    </message>
    <message>
        <source>This and &amp;following</source>
        <translation>Den här och &amp;följande</translation>
    </message>
    <message>
        <source>The whole &amp;series</source>
        <translation>Hela &amp;serien</translation>
    </message>
    <message>
        <source>New event</source>
        <translation>Ny händelse</translation>
    </message>
    <message>
        <source>The clipboard holds no events.</source>
        <translation>Urklipp innehåller inga händelser.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Arkiv</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Öppna...</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>Öppna &amp;tidigare</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Spara</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Spara s&amp;om...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Stän&amp;g</translation>
    </message>
    <message>
        <source>Ctrl+W</source>
        <translation>Ctrl+W</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Redigera</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Visa</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Sidor</translation>
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
        <translation>Zooma &amp;in</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Zooma &amp;ut</translation>
    </message>
    <message>
        <source>&amp;Whole page</source>
        <translation>&amp;Hela sidan</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>Page before</source>
        <translation>Föregående sida</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nästa sida</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>I dag</translation>
    </message>
    <message>
        <source>Go to date…</source>
        <translation>Gå till datum…</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>;;All files (*)</source>
        <translation>;;Alla filer (*)</translation>
    </message>
</context>
<context>
    <name>korvane::planner::TaskDialog</name>
    <message>
        <source>Task properties</source>
        <translation>Aktivitetsegenskaper</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Namn</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>&amp;Date</source>
        <translation>&amp;Datum</translation>
    </message>
    <message>
        <source>&amp;Finish</source>
        <translation>Sl&amp;ut</translation>
    </message>
    <message>
        <source>&amp;Complete</source>
        <translation>&amp;Klart</translation>
    </message>
    <message>
        <source>N&amp;otes</source>
        <translation>Ante&amp;ckningar</translation>
    </message>
    <message>
        <source>ddd d MMM yyyy  HH:mm</source>
        <translation>ddd d MMM yyyy  HH:mm</translation>
    </message>
    <message>
        <source>Has &amp;dates</source>
        <translation>Har &amp;tider</translation>
    </message>
    <message>
        <source>The subtasks make the dates.</source>
        <translation>Underaktiviteterna avgör datumen.</translation>
    </message>
</context>
<context>
    <name>korvane::planner::ViewSwitch</name>
    <message>
        <source>&amp;Tasks</source>
        <translation>A&amp;ktiviteter</translation>
    </message>
    <message>
        <source>Ctrl+1</source>
        <translation>Ctrl+1</translation>
    </message>
    <message>
        <source>&amp;Resources</source>
        <translation>&amp;Resurser</translation>
    </message>
    <message>
        <source>Ctrl+2</source>
        <translation>Ctrl+2</translation>
    </message>
</context>
</TS>
