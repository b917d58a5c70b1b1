<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE">
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>File</source>
        <translation>Fil</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Alias</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Enhet</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Okänd</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Genväg</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>Step &amp;down</source>
        <translation>Stega &amp;ned</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Stega upp</translation>
    </message>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Markera alla</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Okända flaggor: %1.</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Okänd flagga ”%1”.</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[flaggor]</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Flaggor:</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Visar hjälp med de flaggor som hör till Qt.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Användning: %1</translation>
    </message>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Visar hjälp om kommandoradens flaggor.</translation>
    </message>
    <message>
        <source>Unexpected value after &apos;%1&apos;.</source>
        <translation>Oväntat värde efter ”%1”.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Visar versionsinformation.</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argument:</translation>
    </message>
    <message>
        <source>Missing value after &apos;%1&apos;.</source>
        <translation>Värde saknas efter ”%1”.</translation>
    </message>
</context>
<context>
    <name>QDialogButtonBox</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>QDockWidget</name>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Flytande</translation>
    </message>
    <message>
        <source>Undocks and re-attaches the dock widget</source>
        <translation>Lossar och fäster panelen</translation>
    </message>
    <message>
        <source>Closes the dock widget</source>
        <translation>Stänger panelen</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>Back</source>
        <translation>Bakåt</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Öppna</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Spara</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Filer</translation>
    </message>
    <message>
        <source>Show </source>
        <translation>Visa </translation>
    </message>
    <message>
        <source>&apos;%1&apos; is write protected.
Do you want to delete it anyway?</source>
        <translation>”%1” är skrivskyddad.
Vill du ta bort den ändå?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete &apos;%1&apos;?</source>
        <translation>Vill du verkligen ta bort ”%1”?</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Lista över platser och bokmärken</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Fil&amp;namn:</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Ny mapp</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Överordnad mapp</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Ny mapp</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation>Leta i:</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Skapa en ny mapp</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Filer av typen:</translation>
    </message>
    <message>
        <source>Find Directory</source>
        <translation>Sök mapp</translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Visa &amp;dolda filer</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Spara som</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Mappen hittades inte.
Kontrollera att mappens namn är rätt.</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Sidopanel</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Listvy</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Välj</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alla filer (*)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alla filer (*)</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>Mappar</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Byt namn</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Mappen kunde inte tas bort.</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Mapp:</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 finns redan.
Vill du ersätta den?</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Framåt</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Gå framåt</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Gå till överordnad mapp</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Senaste platser</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Gå bakåt</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Byt till detaljvy</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Skapa ny mapp</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Detaljvy</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Filen hittades inte.
Kontrollera att filens namn är rätt.</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Byt till listvy</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Kind</source>
        <translation>Sort</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Storlek</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Den här datorn</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Dator</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Ändringsdatum</translation>
    </message>
</context>
<context>
    <name>QIODevice</name>
    <message>
        <source>No such file or directory</source>
        <translation>Filen eller mappen finns inte</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Åtkomst nekad</translation>
    </message>
    <message>
        <source>file to open is a directory</source>
        <translation>filen att öppna är en mapp</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Inget utrymme kvar på enheten</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Okänt fel</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>För många öppna filer</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp u&amp;t</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gör om</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Ångra</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Klistra &amp;in</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markera alla</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>Show Details...</source>
        <translation>Visa detaljer...</translation>
    </message>
    <message>
        <source>Hide Details...</source>
        <translation>Dölj detaljer...</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Om Qt</translation>
    </message>
    <message>
        <source>&lt;h3&gt;About Qt&lt;/h3&gt;&lt;p&gt;This program uses Qt version %1.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Om Qt&lt;/h3&gt;&lt;p&gt;Programmet använder Qt version %1.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nej</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hjälp</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Spara</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Verkställ</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Återställ</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Försök igen</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Återställ standardvärden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignorera</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>N&amp;ej till alla</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Spara alla</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Förkasta</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Ja till &amp;alla</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>Even Pages</source>
        <translation>Jämna sidor</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Skriv ut</translation>
    </message>
    <message>
        <source>&amp;Options &lt;&lt;</source>
        <translation>&amp;Alternativ &lt;&lt;</translation>
    </message>
    <message>
        <source>&amp;Options &gt;&gt;</source>
        <translation>&amp;Alternativ &gt;&gt;</translation>
    </message>
    <message>
        <source>Write PDF file</source>
        <translation>Skriv PDF-fil</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>Skriv &amp;ut</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to overwrite it?</source>
        <translation>%1 finns redan.
Vill du skriva över den?</translation>
    </message>
    <message>
        <source>Odd Pages</source>
        <translation>Udda sidor</translation>
    </message>
    <message>
        <source>Local file</source>
        <translation>Lokal fil</translation>
    </message>
    <message>
        <source>Print to File (PDF)</source>
        <translation>Skriv till fil (PDF)</translation>
    </message>
    <message>
        <source>Print To File ...</source>
        <translation>Skriv till fil ...</translation>
    </message>
    <message>
        <source>All Pages</source>
        <translation>Alla sidor</translation>
    </message>
    <message>
        <source>The &apos;From&apos; value cannot be greater than the &apos;To&apos; value.</source>
        <translation>Värdet ”från” kan inte vara större än värdet ”till”.</translation>
    </message>
    <message>
        <source>%1 is a directory.
Please choose a different file name.</source>
        <translation>%1 är en mapp.
Välj ett annat filnamn.</translation>
    </message>
    <message>
        <source>File %1 is not writable.
Please choose a different file name.</source>
        <translation>Filen %1 kan inte skrivas.
Välj ett annat filnamn.</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>to</source>
        <translation>till</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Av</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Formulär</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Färg</translation>
    </message>
    <message>
        <source>Print all</source>
        <translation>Skriv ut allt</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Sidor</translation>
    </message>
    <message>
        <source>Current Page</source>
        <translation>Aktuell sida</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Markering</translation>
    </message>
    <message>
        <source>Copies</source>
        <translation>Exemplar</translation>
    </message>
    <message>
        <source>Print range</source>
        <translation>Utskriftsområde</translation>
    </message>
    <message>
        <source>Color Mode</source>
        <translation>Färgläge</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Alternativ</translation>
    </message>
    <message>
        <source>Output Settings</source>
        <translation>Utskriftsinställningar</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Omvänd</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Gråskala</translation>
    </message>
    <message>
        <source>Collate</source>
        <translation>Sortera</translation>
    </message>
    <message>
        <source>Copies:</source>
        <translation>Exemplar:</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Bindning längs kortsidan</translation>
    </message>
    <message>
        <source>Pages from</source>
        <translation>Sidor från</translation>
    </message>
    <message>
        <source>Double Sided Printing</source>
        <translation>Dubbelsidig utskrift</translation>
    </message>
    <message>
        <source>Page Set:</source>
        <translation>Sidurval:</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Bindning längs långsidan</translation>
    </message>
</context>
<context>
    <name>QPrintWidget</name>
    <message>
        <source>Form</source>
        <translation>Formulär</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Namn:</translation>
    </message>
    <message>
        <source>Output &amp;file:</source>
        <translation>Utdata&amp;fil:</translation>
    </message>
    <message>
        <source>P&amp;roperties</source>
        <translation>&amp;Egenskaper</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Förhandsgranska</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Skrivare</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Plats:</translation>
    </message>
</context>
<context>
    <name>QProgressDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
</context>
<context>
    <name>QSaveFile</name>
    <message>
        <source>Filename refers to a directory</source>
        <translation>Filnamnet avser en mapp</translation>
    </message>
    <message>
        <source>Writing canceled by application</source>
        <translation>Programmet avbröt skrivningen</translation>
    </message>
    <message>
        <source>Existing file %1 is not writable</source>
        <translation>Filen %1 finns och kan inte skrivas</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Up</source>
        <translation>Upp</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ned</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Vänster</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Höger</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Skift</translation>
    </message>
    <message>
        <source>PgUp</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>PgDown</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Ins</source>
        <translation>Ins</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Blanksteg</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Retur</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backsteg</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Meta</source>
        <translation>Meta</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp u&amp;t</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gör om</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Ångra</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Klistra &amp;in</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markera alla</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Kopiera &amp;länkadress</translation>
    </message>
</context>
</TS>
