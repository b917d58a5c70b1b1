<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE">
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
        <translation>%1 d</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 tim</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Slut</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Längd</translation>
    </message>
    <message>
        <source>From</source>
        <comment>first item of a link</comment>
        <translation>Från</translation>
    </message>
    <message>
        <source>To</source>
        <comment>second item of a link</comment>
        <translation>Till</translation>
    </message>
</context>
<context>
    <name>TzuDateScaler</name>
    <message>
        <source>Zoom in</source>
        <translation>Zooma in</translation>
    </message>
    <message>
        <source>Shows less time</source>
        <translation>Visar mindre tid</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Zooma ut</translation>
    </message>
    <message>
        <source>Shows more time</source>
        <translation>Visar mer tid</translation>
    </message>
    <message>
        <source>Scroll earlier</source>
        <translation>Tidigare</translation>
    </message>
    <message>
        <source>Shows earlier times</source>
        <translation>Visar tidigare tider</translation>
    </message>
    <message>
        <source>Scroll later</source>
        <translation>Senare</translation>
    </message>
    <message>
        <source>Shows later times</source>
        <translation>Visar senare tider</translation>
    </message>
    <message>
        <source>Page earlier</source>
        <translation>En sida tidigare</translation>
    </message>
    <message>
        <source>Shows the time before</source>
        <translation>Visar tiden före</translation>
    </message>
    <message>
        <source>Page later</source>
        <translation>En sida senare</translation>
    </message>
    <message>
        <source>Shows the time after</source>
        <translation>Visar tiden efter</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>I dag</translation>
    </message>
    <message>
        <source>Shows the present</source>
        <translation>Visar nutiden</translation>
    </message>
</context>
<context>
    <name>TzuDesign</name>
    <message>
        <source>Caption in the header row</source>
        <translation>Rubrik i huvudraden</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Bredd i bildpunkter</translation>
    </message>
    <message>
        <source>Content and editor of the cells</source>
        <translation>Cellernas innehåll och redigerare</translation>
    </message>
    <message>
        <source>A click on the header may sort by the column</source>
        <translation>Ett klick på rubriken får sortera efter kolumnen</translation>
    </message>
    <message>
        <source>Sorts by numeric value rather than by text</source>
        <translation>Sorterar efter talvärde i stället för text</translation>
    </message>
    <message>
        <source>The cells cannot be edited</source>
        <translation>Cellerna kan inte redigeras</translation>
    </message>
    <message>
        <source>The column is not shown</source>
        <translation>Kolumnen visas inte</translation>
    </message>
    <message>
        <source>The cell layout of the column&apos;s cells</source>
        <translation>Cellayouten för kolumnens celler</translation>
    </message>
    <message>
        <source>The sub-grid that cells of kind tckSubGrid show</source>
        <translation>Undertabellen som celler av typen tckSubGrid visar</translation>
    </message>
    <message>
        <source>Shows the expand buttons of the tree</source>
        <translation>Visar trädets expanderingsknappar</translation>
    </message>
    <message>
        <source>Cells show an image of the grid&apos;s image list</source>
        <translation>Cellerna visar en bild ur tabellens bildlista</translation>
    </message>
    <message>
        <source>Neighbouring cells with equal content are shown as one</source>
        <translation>Intilliggande celler med lika innehåll visas som en</translation>
    </message>
    <message>
        <source>By which columns refer to the sub-grid</source>
        <translation>Namnet som kolumner hänvisar till undertabellen med</translation>
    </message>
    <message>
        <source>Its columns</source>
        <translation>Dess kolumner</translation>
    </message>
    <message>
        <source>Has a row of headers</source>
        <translation>Har en rad med rubriker</translation>
    </message>
    <message>
        <source>Has the narrow column at the left</source>
        <translation>Har den smala kolumnen till vänster</translation>
    </message>
    <message>
        <source>The last column takes the room that is left</source>
        <translation>Sista kolumnen fyller resten av utrymmet</translation>
    </message>
    <message>
        <source>By which columns and cells refer to the layout</source>
        <translation>Namnet som kolumner och celler hänvisar till layouten med</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Bakgrund</translation>
    </message>
    <message>
        <source>Colour of the text</source>
        <translation>Textens färg</translation>
    </message>
    <message>
        <source>Uses Font rather than the font of the grid</source>
        <translation>Använder Font i stället för tabellens typsnitt</translation>
    </message>
    <message>
        <source>Font of the text, when UseFontInfo is set</source>
        <translation>Textens typsnitt när UseFontInfo är satt</translation>
    </message>
    <message>
        <source>Least width in pixels</source>
        <translation>Minsta bredd i bildpunkter</translation>
    </message>
    <message>
        <source>Least height in pixels</source>
        <translation>Minsta höjd i bildpunkter</translation>
    </message>
    <message>
        <source>Wraps the text; the cell grows to fit it</source>
        <translation>Radbryter texten; cellen växer efter den</translation>
    </message>
    <message>
        <source>Text at the right</source>
        <translation>Text till höger</translation>
    </message>
    <message>
        <source>Text in the middle of the width</source>
        <translation>Text centrerad vågrätt</translation>
    </message>
    <message>
        <source>Text in the middle of the height</source>
        <translation>Text centrerad lodrätt</translation>
    </message>
    <message>
        <source>Text that does not fit ends with an ellipsis</source>
        <translation>Text som inte får plats slutar med tre punkter</translation>
    </message>
    <message>
        <source>Places the text by WindowsFlags</source>
        <translation>Placerar texten enligt WindowsFlags</translation>
    </message>
    <message>
        <source>Where the text stands, when WindowsFlagDraw is set</source>
        <translation>Var texten står när WindowsFlagDraw är satt</translation>
    </message>
    <message>
        <source>Has a frame at the sides in FrameOptions</source>
        <translation>Har en ram på sidorna i FrameOptions</translation>
    </message>
    <message>
        <source>The sides with a frame, when FrameOptionsUse is set</source>
        <translation>Sidorna med ram när FrameOptionsUse är satt</translation>
    </message>
    <message>
        <source>Look of the frame</source>
        <translation>Ramens utseende</translation>
    </message>
    <message>
        <source>Colour of the frame</source>
        <translation>Ramens färg</translation>
    </message>
    <message>
        <source>Sample</source>
        <translation>Exempel</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Planera</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Bygga</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Testa</translation>
    </message>
    <message>
        <source>Deliver</source>
        <translation>Leverera</translation>
    </message>
    <message>
        <source>Early</source>
        <translation>Tidig</translation>
    </message>
    <message>
        <source>Late</source>
        <translation>Sen</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>Lång</translation>
    </message>
    <message>
        <source>Short</source>
        <translation>Kort</translation>
    </message>
    <message>
        <source>Beside</source>
        <translation>Bredvid</translation>
    </message>
    <message>
        <source>Text %1</source>
        <translation>Text %1</translation>
    </message>
    <message>
        <source>Room A</source>
        <translation>Sal A</translation>
    </message>
    <message>
        <source>Room B</source>
        <translation>Sal B</translation>
    </message>
    <message>
        <source>Room C</source>
        <translation>Sal C</translation>
    </message>
    <message>
        <source>First</source>
        <translation>Första</translation>
    </message>
    <message>
        <source>Second</source>
        <translation>Andra</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Another part</source>
        <translation>En annan del</translation>
    </message>
    <message>
        <source>Third</source>
        <translation>Tredje</translation>
    </message>
    <message>
        <source>No columns yet: see &quot;Columns&quot; in the context menu</source>
        <translation>Inga kolumner än: se ”Columns” i snabbmenyn</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Centred</source>
        <translation>Centrerad</translation>
    </message>
    <message>
        <source>At the right</source>
        <translation>Till höger</translation>
    </message>
    <message>
        <source>Half-way down</source>
        <translation>Halvvägs ned</translation>
    </message>
    <message>
        <source>At the bottom</source>
        <translation>Längst ned</translation>
    </message>
    <message>
        <source>Words wrapped</source>
        <translation>Radbruten</translation>
    </message>
    <message>
        <source>Single line</source>
        <translation>Enradig</translation>
    </message>
    <message>
        <source>Ellipsis at the end</source>
        <translation>Tre punkter i slutet</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(inga)</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Annan...</translation>
    </message>
    <message>
        <source>%1 columns...</source>
        <translation>%1 kolumner...</translation>
    </message>
    <message>
        <source>Schedule view: columns of times under a time axis</source>
        <translation>Schemavy: kolumner med tider under en tidsaxel</translation>
    </message>
    <message>
        <source>Shows times as blocks in columns, one column for each resource, room or day, along a time axis. The user moves, stretches and copies them.</source>
        <translation>Visar tider som block i kolumner, en kolumn för varje resurs, sal eller dag, längs en tidsaxel. Användaren flyttar, sträcker och kopierar dem.</translation>
    </message>
    <message>
        <source>Gantt chart: bars on rows beside a tree</source>
        <translation>Ganttschema: staplar på rader bredvid ett träd</translation>
    </message>
    <message>
        <source>Shows what happens when: bars, milestones and links on the rows of a tree, under a time axis that zooms and scrolls.</source>
        <translation>Visar vad som händer när: staplar, milstolpar och länkar på ett träds rader, under en tidsaxel som kan zoomas och rullas.</translation>
    </message>
    <message>
        <source>Time axis that zooms and scrolls</source>
        <translation>Tidsaxel som kan zoomas och rullas</translation>
    </message>
    <message>
        <source>Shows a range of time with its calendar, in two rows of labels, from milliseconds to centuries.</source>
        <translation>Visar ett tidsintervall med sin kalender i två rader etiketter, från millisekunder till århundraden.</translation>
    </message>
    <message>
        <source>Tree of entities, loaded when needed</source>
        <translation>Träd med poster som laddas vid behov</translation>
    </message>
    <message>
        <source>Shows a hierarchy of entities whose children may be loaded when they are first seen. The user edits, sorts and moves them.</source>
        <translation>Visar en hierarki av poster vars underposter kan laddas först när de syns. Användaren redigerar, sorterar och flyttar dem.</translation>
    </message>
    <message>
        <source>Data grid with columns of many kinds</source>
        <translation>Datatabell med kolumner av många slag</translation>
    </message>
    <message>
        <source>Shows rows of cells in columns of text, check boxes, dates, times, grids and trees. Its columns are edited in the form designer.</source>
        <translation>Visar rader av celler i kolumner med text, kryssrutor, datum, tider, tabeller och träd. Kolumnerna redigeras i formulärdesignern.</translation>
    </message>
</context>
<context>
    <name>TzuGant</name>
    <message>
        <source>After %1</source>
        <translation>Efter %1</translation>
    </message>
    <message>
        <source>Before %1</source>
        <translation>Före %1</translation>
    </message>
    <message>
        <source>Gantt chart</source>
        <translation>Ganttschema</translation>
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
            <numerusform>%n cell kan inte ändras.</numerusform>
            <numerusform>%n celler kan inte ändras.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) would lie outside of the grid.</source>
        <translation>
            <numerusform>%n cell skulle hamna utanför tabellen.</numerusform>
            <numerusform>%n celler skulle hamna utanför tabellen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) kept the old content: %1</source>
        <translation>
            <numerusform>%n cell behöll sitt gamla innehåll: %1</numerusform>
            <numerusform>%n celler behöll sitt gamla innehåll: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no date. An example: %2</source>
        <translation>”%1” är inget datum. Ett exempel: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no time of day. An example: %2</source>
        <translation>”%1” är inget klockslag. Ett exempel: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not fit here.</source>
        <translation>”%1” passar inte här.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is none of the choices.</source>
        <translation>”%1” är inget av alternativen.</translation>
    </message>
    <message>
        <source>This change is not allowed.</source>
        <translation>Ändringen är inte tillåten.</translation>
    </message>
</context>
<context>
    <name>TzuPrinting</name>
    <message>
        <source>The time to print is empty</source>
        <translation>Tiden att skriva ut är tom</translation>
    </message>
    <message>
        <source>The time axis has no scale</source>
        <translation>Tidsaxeln har ingen skala</translation>
    </message>
    <message>
        <source>The document cannot be given bookmarks</source>
        <translation>Dokumentet kan inte få bokmärken</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kan inte skrivas: %2</translation>
    </message>
    <message>
        <source>There are no such pages</source>
        <translation>Det finns inga sådana sidor</translation>
    </message>
    <message>
        <source>The printer cannot be used</source>
        <translation>Skrivaren kan inte användas</translation>
    </message>
    <message>
        <source>The printer takes no further page</source>
        <translation>Skrivaren tar inte emot fler sidor</translation>
    </message>
    <message>
        <source>The printer could not finish</source>
        <translation>Skrivaren kunde inte avsluta</translation>
    </message>
    <message>
        <source>The document takes no further page</source>
        <translation>Dokumentet rymmer inte fler sidor</translation>
    </message>
    <message>
        <source>The picture is too large</source>
        <translation>Bilden är för stor</translation>
    </message>
    <message>
        <source>There is nothing to print</source>
        <translation>Det finns inget att skriva ut</translation>
    </message>
    <message>
        <source>The time to print is too long at this scale</source>
        <translation>Tiden att skriva ut är för lång i den här skalan</translation>
    </message>
    <message>
        <source>There is too much to print at once</source>
        <translation>Det är för mycket att skriva ut på en gång</translation>
    </message>
    <message>
        <source>The margins leave no room on the paper</source>
        <translation>Marginalerna lämnar inget utrymme på papperet</translation>
    </message>
    <message>
        <source>The paper has no room beside labels, axis and headings</source>
        <translation>Papperet har inget utrymme bredvid etiketter, axel och rubriker</translation>
    </message>
    <message>
        <source>There is no printer</source>
        <translation>Det finns ingen skrivare</translation>
    </message>
    <message>
        <source>Cannot keep the pages until they are printed: %1</source>
        <translation>Sidorna kan inte sparas tills de skrivs ut: %1</translation>
    </message>
    <message>
        <source>it is incomplete</source>
        <translation>filen är ofullständig</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>det är en mapp</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>disken är full</translation>
    </message>
</context>
<context>
    <name>TzuSchema</name>
    <message>
        <source>Schedule</source>
        <translation>Schema</translation>
    </message>
</context>
<context>
    <name>korvane::TBabGridFindBar</name>
    <message>
        <source>Find</source>
        <translation>Sök</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Föregående träff</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Nästa träff</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Hittades inte</translation>
    </message>
    <message>
        <source>Went on from the other end</source>
        <translation>Fortsatte från andra änden</translation>
    </message>
</context>
<context>
    <name>korvane::TCollectionEditor</name>
    <message>
        <source>Columns</source>
        <translation>Kolumner</translation>
    </message>
    <message>
        <source>Sub-grids</source>
        <translation>Undertabeller</translation>
    </message>
    <message>
        <source>Cell layouts</source>
        <translation>Cellayouter</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Kolumn %1</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>Förhandsvisning:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Lägg till</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Upp</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ned</translation>
    </message>
    <message>
        <source>Columns of %1</source>
        <translation>Kolumner i %1</translation>
    </message>
    <message>
        <source>(unnamed)</source>
        <translation>(namnlös)</translation>
    </message>
</context>
<context>
    <name>korvane::TNameListEditor</name>
    <message>
        <source>Add</source>
        <translation>Lägg till</translation>
    </message>
    <message>
        <source>&amp;Offered:</source>
        <translation>&amp;Utbud:</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Upp</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ned</translation>
    </message>
    <message>
        <source>&amp;Chosen:</source>
        <translation>&amp;Valda:</translation>
    </message>
</context>
<context>
    <name>korvane::TSchemaColumnScroller</name>
    <message>
        <source>Previous column</source>
        <translation>Föregående kolumn</translation>
    </message>
    <message>
        <source>Next column</source>
        <translation>Nästa kolumn</translation>
    </message>
</context>
<context>
    <name>korvane::TTaskMenu</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 i %2</translation>
    </message>
    <message>
        <source>Sub-grids</source>
        <translation>Undertabeller</translation>
    </message>
    <message>
        <source>Cell layouts</source>
        <translation>Cellayouter</translation>
    </message>
    <message>
        <source>Grid columns</source>
        <translation>Tabellens kolumner</translation>
    </message>
    <message>
        <source>Grid sub-grids</source>
        <translation>Tabellens undertabeller</translation>
    </message>
    <message>
        <source>Grid cell layouts</source>
        <translation>Tabellens cellayouter</translation>
    </message>
    <message>
        <source>Images of %1</source>
        <translation>Bilder för %1</translation>
    </message>
    <message>
        <source>Part of the name, a file, or an icon of the theme</source>
        <translation>Del av namnet, en fil eller en ikon ur temat</translation>
    </message>
    <message>
        <source>A menu, or actions; - is a line</source>
        <translation>En meny eller åtgärder; - är en linje</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Menu: %1</source>
        <translation>Meny: %1</translation>
    </message>
</context>
<context>
    <name>korvane::TTreeCaptionEdit</name>
    <message>
        <source>A caption has at most %1 characters; this text has %2.</source>
        <translation>En rubrik har högst %1 tecken; den här texten har %2.</translation>
    </message>
</context>
<context>
    <name>korvane::TXYSizer</name>
    <message>
        <source>Resize scale and header</source>
        <translation>Ändra storlek på skala och rubriker</translation>
    </message>
</context>
<context>
    <name>korvane::TzuGridColumnMenu</name>
    <message>
        <source>Sort &amp;Ascending</source>
        <translation>Sortera &amp;stigande</translation>
    </message>
    <message>
        <source>Sort &amp;Descending</source>
        <translation>Sortera &amp;fallande</translation>
    </message>
    <message>
        <source>&amp;No Sorting</source>
        <translation>I&amp;ngen sortering</translation>
    </message>
    <message>
        <source>&amp;Fit Width</source>
        <translation>&amp;Anpassa bredden</translation>
    </message>
    <message>
        <source>Fit A&amp;ll Columns</source>
        <translation>Anpassa a&amp;lla kolumner</translation>
    </message>
    <message>
        <source>&amp;Wider</source>
        <translation>&amp;Bredare</translation>
    </message>
    <message>
        <source>Na&amp;rrower</source>
        <translation>S&amp;malare</translation>
    </message>
    <message>
        <source>Move Le&amp;ft</source>
        <translation>Flytta åt &amp;vänster</translation>
    </message>
    <message>
        <source>Move Ri&amp;ght</source>
        <translation>Flytta åt &amp;höger</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Dölj</translation>
    </message>
    <message>
        <source>&amp;Columns</source>
        <translation>&amp;Kolumner</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Kolumn %1</translation>
    </message>
</context>
<context>
    <name>korvane::TzuPrintPreview</name>
    <message>
        <source>Pages</source>
        <translation>Sidor</translation>
    </message>
</context>
<context>
    <name>korvane::TzuTreePopup</name>
    <message>
        <source>E&amp;xpand All</source>
        <translation>E&amp;xpandera alla</translation>
    </message>
    <message>
        <source>&amp;Collapse All</source>
        <translation>&amp;Fäll ihop alla</translation>
    </message>
    <message>
        <source>Expand to &amp;Level</source>
        <translation>Expandera till &amp;nivå</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Redigera</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Sortera</translation>
    </message>
    <message>
        <source>&amp;Ascending</source>
        <translation>&amp;Stigande</translation>
    </message>
    <message>
        <source>&amp;Descending</source>
        <translation>&amp;Fallande</translation>
    </message>
    <message>
        <source>All Levels A&amp;scending</source>
        <translation>Alla nivåer s&amp;tigande</translation>
    </message>
    <message>
        <source>All Levels D&amp;escending</source>
        <translation>Alla nivåer fa&amp;llande</translation>
    </message>
    <message>
        <source>Level &amp;%1</source>
        <translation>Nivå &amp;%1</translation>
    </message>
</context>
<context>
    <name>korvane::TzuTree_ComBasic</name>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n post</numerusform>
            <numerusform>%n poster</numerusform>
        </translation>
    </message>
</context>
</TS>
