<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BrokenLinksView</name>
    <message>
        <source>Broken &amp;pages of the last scan</source>
        <translation>Defekte Seiten des letzten Suchla&amp;ufs</translation>
    </message>
    <message>
        <source>Search broken pages</source>
        <translation>Defekte Seiten durchsuchen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Broken pages</source>
        <translation>Defekte Seiten</translation>
    </message>
    <message>
        <source>Pages that lin&amp;k to the selected address</source>
        <translation>Seiten, die auf die ausgewählte Adresse &amp;verweisen</translation>
    </message>
    <message>
        <source>Export &amp;as CSV...</source>
        <translation>Als &amp;CSV exportieren...</translation>
    </message>
    <message>
        <source>Export Broken Links with Their Pages as CSV</source>
        <translation>Defekte Links mit ihren Seiten als CSV exportieren</translation>
    </message>
    <message>
        <source>Export as &amp;JSON...</source>
        <translation>Als &amp;JSON exportieren...</translation>
    </message>
    <message>
        <source>Export Broken Links with Their Pages as JSON</source>
        <translation>Defekte Links mit ihren Seiten als JSON exportieren</translation>
    </message>
    <message>
        <source>Pages that link to the selected address</source>
        <translation>Seiten, die auf die ausgewählte Adresse verweisen</translation>
    </message>
    <message>
        <source>&amp;Back to Scan</source>
        <translation>&amp;Zurück zum Suchlauf</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy Address of Broken Page</source>
        <translation>Adresse der defekten Seite kopieren</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>Im Browser ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open Broken Page in Browser</source>
        <translation>Defekte Seite im Browser öffnen</translation>
    </message>
    <message>
        <source>&amp;Leave This Out</source>
        <translation>Aus&amp;lassen</translation>
    </message>
    <message>
        <source>Export as &amp;Text...</source>
        <translation>Als &amp;Text exportieren...</translation>
    </message>
    <message>
        <source>Export Broken Links as Text</source>
        <translation>Defekte Links als Text exportieren</translation>
    </message>
    <message>
        <source>Export as HT&amp;ML...</source>
        <translation>Als HT&amp;ML exportieren...</translation>
    </message>
    <message>
        <source>Export Broken Links as HTML</source>
        <translation>Defekte Links als HTML exportieren</translation>
    </message>
</context>
<context>
    <name>ExportView</name>
    <message>
        <source>S&amp;ite</source>
        <translation>&amp;Website</translation>
    </message>
    <message>
        <source>Site</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Scan a website first: then its sitemaps can be exported.</source>
        <translation>Durchsuchen Sie zuerst eine Website: Dann können ihre Sitemaps exportiert werden.</translation>
    </message>
    <message>
        <source>&amp;Go to Scan</source>
        <translation>&amp;Zum Suchlauf</translation>
    </message>
    <message>
        <source>HTML sitemap</source>
        <translation>HTML-Sitemap</translation>
    </message>
    <message>
        <source>Pages and links</source>
        <translation>Seiten und Links</translation>
    </message>
    <message>
        <source>&amp;3 columns</source>
        <translation>&amp;3 Spalten</translation>
    </message>
    <message>
        <source>3 columns, pages and links</source>
        <translation>3 Spalten, Seiten und Links</translation>
    </message>
    <message>
        <source>&amp;2 columns</source>
        <translation>&amp;2 Spalten</translation>
    </message>
    <message>
        <source>2 columns, pages and links</source>
        <translation>2 Spalten, Seiten und Links</translation>
    </message>
    <message>
        <source>&amp;1 column</source>
        <translation>&amp;1 Spalte</translation>
    </message>
    <message>
        <source>1 column, pages and links</source>
        <translation>1 Spalte, Seiten und Links</translation>
    </message>
    <message>
        <source>Pages only</source>
        <translation>Nur Seiten</translation>
    </message>
    <message>
        <source>3 columns</source>
        <translation>3 Spalten</translation>
    </message>
    <message>
        <source>3 columns, pages only</source>
        <translation>3 Spalten, nur Seiten</translation>
    </message>
    <message>
        <source>2 columns</source>
        <translation>2 Spalten</translation>
    </message>
    <message>
        <source>2 columns, pages only</source>
        <translation>2 Spalten, nur Seiten</translation>
    </message>
    <message>
        <source>1 column</source>
        <translation>1 Spalte</translation>
    </message>
    <message>
        <source>1 column, pages only</source>
        <translation>1 Spalte, nur Seiten</translation>
    </message>
    <message>
        <source>Export HT&amp;ML...</source>
        <translation>HT&amp;ML exportieren...</translation>
    </message>
    <message>
        <source>Export HTML Sitemap</source>
        <translation>HTML-Sitemap exportieren</translation>
    </message>
    <message>
        <source>XML sitemap for search engines</source>
        <translation>XML-Sitemap für Suchmaschinen</translation>
    </message>
    <message>
        <source>S&amp;plit into files of 50,000 pages, with an index</source>
        <translation>In Dateien zu 50.000 Seiten au&amp;fteilen, mit einem Index</translation>
    </message>
    <message>
        <source>&amp;Compress the files (gzip)</source>
        <translation>Dateien &amp;komprimieren (gzip)</translation>
    </message>
    <message>
        <source>Export &amp;XML...</source>
        <translation>&amp;XML exportieren...</translation>
    </message>
    <message>
        <source>Export XML Sitemap</source>
        <translation>XML-Sitemap exportieren</translation>
    </message>
    <message>
        <source>Save fo&amp;lder</source>
        <translation>S&amp;peicherordner</translation>
    </message>
    <message>
        <source>None chosen</source>
        <translation>Keiner ausgewählt</translation>
    </message>
    <message>
        <source>Save folder</source>
        <translation>Speicherordner</translation>
    </message>
    <message>
        <source>Ch&amp;oose...</source>
        <translation>Auswäh&amp;len...</translation>
    </message>
    <message>
        <source>Choose Save Folder</source>
        <translation>Speicherordner auswählen</translation>
    </message>
</context>
<context>
    <name>FilterPanel</name>
    <message>
        <source>Links that contain one of these texts are left out.</source>
        <translation>Links, die einen dieser Texte enthalten, werden ausgelassen.</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Text to leave out</source>
        <translation>Auslassen</translation>
    </message>
    <message>
        <source>New filter</source>
        <translation>Neuer Filter</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add Filter</source>
        <translation>Filter hinzufügen</translation>
    </message>
    <message>
        <source>Delete Filter</source>
        <translation>Filter löschen</translation>
    </message>
</context>
<context>
    <name>FindingsPanel</name>
    <message>
        <source>Entry %1: %2</source>
        <translation>Eintrag %1: %2</translation>
    </message>
    <message>
        <source>Entry %1, %2: %3</source>
        <translation>Eintrag %1, %2: %3</translation>
    </message>
</context>
<context>
    <name>HtmlView</name>
    <message>
        <source>La&amp;yout</source>
        <translation>La&amp;yout</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>Layout</translation>
    </message>
    <message>
        <source>Which of the six sitemaps of the site is shown</source>
        <translation>Welche der sechs Sitemaps der Website angezeigt wird</translation>
    </message>
    <message>
        <source>Opening the sitemap</source>
        <translation>Sitemap wird geöffnet</translation>
    </message>
    <message>
        <source>Layout of the sitemap</source>
        <translation>Layout der Sitemap</translation>
    </message>
    <message>
        <source>View in Bro&amp;wser</source>
        <translation>Im Bro&amp;wser ansehen</translation>
    </message>
    <message>
        <source>View in Browser</source>
        <translation>Im Browser ansehen</translation>
    </message>
    <message>
        <source>Open a copy without the editing marks in the browser</source>
        <translation>Eine Kopie ohne die Bearbeitungsmarken im Browser öffnen</translation>
    </message>
    <message>
        <source>Save Chan&amp;ges</source>
        <translation>Änderungen s&amp;peichern</translation>
    </message>
    <message>
        <source>Save Changes</source>
        <translation>Änderungen speichern</translation>
    </message>
    <message>
        <source>Write the changes into the sitemap that is shown (Ctrl+S)</source>
        <translation>Die Änderungen in die angezeigte Sitemap schreiben (Strg+S)</translation>
    </message>
    <message>
        <source>Selected link</source>
        <translation>Ausgewählter Link</translation>
    </message>
    <message>
        <source>Click a link in the sitemap to change it.</source>
        <translation>Klicken Sie auf einen Link in der Sitemap, um ihn zu ändern.</translation>
    </message>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>Title of the selected link</source>
        <translation>Titel des ausgewählten Links</translation>
    </message>
    <message>
        <source>Lin&amp;k</source>
        <translation>&amp;Link</translation>
    </message>
    <message>
        <source>Address of the selected link</source>
        <translation>Adresse des ausgewählten Links</translation>
    </message>
    <message>
        <source>&amp;Delete Link...</source>
        <translation>Lin&amp;k löschen...</translation>
    </message>
    <message>
        <source>Delete Link</source>
        <translation>Link löschen</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>&amp;Page titles</source>
        <translation>Se&amp;itentitel</translation>
    </message>
    <message>
        <source>F&amp;ont</source>
        <translation>S&amp;chriftart</translation>
    </message>
    <message>
        <source>Font of page titles</source>
        <translation>Schriftart der Seitentitel</translation>
    </message>
    <message>
        <source>The fonts a browser tries, in this order</source>
        <translation>Die Schriftarten, die ein Browser in dieser Reihenfolge versucht</translation>
    </message>
    <message>
        <source>Si&amp;ze</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>Size of page titles</source>
        <translation>Größe der Seitentitel</translation>
    </message>
    <message>
        <source>Compared with ordinary text</source>
        <translation>Im Vergleich zu gewöhnlichem Text</translation>
    </message>
    <message>
        <source>&amp;Bold</source>
        <translation>&amp;Fett</translation>
    </message>
    <message>
        <source>Bold page titles</source>
        <translation>Seitentitel fett</translation>
    </message>
    <message>
        <source>&amp;Italic</source>
        <translation>Kursi&amp;v</translation>
    </message>
    <message>
        <source>Italic page titles</source>
        <translation>Seitentitel kursiv</translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation>Fa&amp;rbe</translation>
    </message>
    <message>
        <source>Colour of page titles</source>
        <translation>Farbe der Seitentitel</translation>
    </message>
    <message>
        <source>Six hexadecimal digits: red, green and blue</source>
        <translation>Sechs hexadezimale Ziffern: Rot, Grün und Blau</translation>
    </message>
    <message>
        <source>Choose the colour of page titles</source>
        <translation>Farbe der Seitentitel auswählen</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Eine Farbe auswählen</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>Unterstreichen</translation>
    </message>
    <message>
        <source>Underlining of page titles</source>
        <translation>Unterstreichung der Seitentitel</translation>
    </message>
    <message>
        <source>Under the &amp;mouse</source>
        <translation>Unter der Ma&amp;us</translation>
    </message>
    <message>
        <source>Underline page titles under the mouse</source>
        <translation>Seitentitel unter der Maus unterstreichen</translation>
    </message>
    <message>
        <source>&amp;Never</source>
        <translation>Ni&amp;e</translation>
    </message>
    <message>
        <source>Never underline page titles</source>
        <translation>Seitentitel nie unterstreichen</translation>
    </message>
    <message>
        <source>&amp;Always</source>
        <translation>I&amp;mmer</translation>
    </message>
    <message>
        <source>Always underline page titles</source>
        <translation>Seitentitel immer unterstreichen</translation>
    </message>
    <message>
        <source>Page &amp;links</source>
        <translation>Seite&amp;nlinks</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schriftart</translation>
    </message>
    <message>
        <source>Font of page links</source>
        <translation>Schriftart der Seitenlinks</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Size of page links</source>
        <translation>Größe der Seitenlinks</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>Bold page links</source>
        <translation>Seitenlinks fett</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>Italic page links</source>
        <translation>Seitenlinks kursiv</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Colour of page links</source>
        <translation>Farbe der Seitenlinks</translation>
    </message>
    <message>
        <source>Choose the colour of page links</source>
        <translation>Farbe der Seitenlinks auswählen</translation>
    </message>
    <message>
        <source>Underlining of page links</source>
        <translation>Unterstreichung der Seitenlinks</translation>
    </message>
    <message>
        <source>Under the mouse</source>
        <translation>Unter der Maus</translation>
    </message>
    <message>
        <source>Underline page links under the mouse</source>
        <translation>Seitenlinks unter der Maus unterstreichen</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Never underline page links</source>
        <translation>Seitenlinks nie unterstreichen</translation>
    </message>
    <message>
        <source>Always</source>
        <translation>Immer</translation>
    </message>
    <message>
        <source>Always underline page links</source>
        <translation>Seitenlinks immer unterstreichen</translation>
    </message>
    <message>
        <source>File that is shown</source>
        <translation>Angezeigte Datei</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Change Fre&amp;quency</source>
        <translation>Änderungs&amp;häufigkeit</translation>
    </message>
    <message>
        <source>Pr&amp;iority</source>
        <translation>&amp;Priorität</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Layout</source>
        <translation>&amp;Layout</translation>
    </message>
    <message>
        <source>&amp;Scan</source>
        <translation>&amp;Suchlauf</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Views</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>&amp;Add Site...</source>
        <translation>&amp;Website hinzufügen...</translation>
    </message>
    <message>
        <source>Add a website</source>
        <translation>Eine Website hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Edit Site...</source>
        <translation>Website &amp;bearbeiten...</translation>
    </message>
    <message>
        <source>Change the name or the address of the selected site</source>
        <translation>Name oder Adresse der ausgewählten Website ändern</translation>
    </message>
    <message>
        <source>&amp;Delete Site...</source>
        <translation>Website &amp;löschen...</translation>
    </message>
    <message>
        <source>Delete the selected site with all that was written for it</source>
        <translation>Die ausgewählte Website mit allem löschen, was für sie geschrieben wurde</translation>
    </message>
    <message>
        <source>Open Site &amp;Folder</source>
        <translation>Website-&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>Open the folder that holds the sitemaps of the selected site</source>
        <translation>Den Ordner mit den Sitemaps der ausgewählten Website öffnen</translation>
    </message>
    <message>
        <source>&amp;Save Changes</source>
        <translation>Änderungen &amp;speichern</translation>
    </message>
    <message>
        <source>Write the changes into the HTML sitemap that is shown</source>
        <translation>Die Änderungen in die angezeigte HTML-Sitemap schreiben</translation>
    </message>
    <message>
        <source>View in &amp;Browser</source>
        <translation>Im Browser a&amp;nsehen</translation>
    </message>
    <message>
        <source>Open a copy of the HTML sitemap without the editing marks in the browser</source>
        <translation>Eine Kopie der HTML-Sitemap ohne die Bearbeitungsmarken im Browser öffnen</translation>
    </message>
    <message>
        <source>Export &amp;HTML Sitemap...</source>
        <translation>&amp;HTML-Sitemap exportieren...</translation>
    </message>
    <message>
        <source>Save an HTML sitemap for your website</source>
        <translation>Eine HTML-Sitemap für Ihre Website speichern</translation>
    </message>
    <message>
        <source>Export &amp;XML Sitemap...</source>
        <translation>&amp;XML-Sitemap exportieren...</translation>
    </message>
    <message>
        <source>Save the XML sitemap for search engines</source>
        <translation>Die XML-Sitemap für Suchmaschinen speichern</translation>
    </message>
    <message>
        <source>Export Broken Links as &amp;Text...</source>
        <translation>Defekte Links als &amp;Text exportieren...</translation>
    </message>
    <message>
        <source>Save the list of broken pages as text</source>
        <translation>Die Liste der defekten Seiten als Text speichern</translation>
    </message>
    <message>
        <source>Export Broken Links as HT&amp;ML...</source>
        <translation>Defekte Links als HT&amp;ML exportieren...</translation>
    </message>
    <message>
        <source>Save the list of broken pages as a web page</source>
        <translation>Die Liste der defekten Seiten als Webseite speichern</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Close the window and quit</source>
        <translation>Das Fenster schließen und das Programm beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
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
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Copy Addre&amp;ss</source>
        <translation>Adresse kop&amp;ieren</translation>
    </message>
    <message>
        <source>Copy the address that is selected, or that of the site</source>
        <translation>Die ausgewählte Adresse oder die der Website kopieren</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>Im &amp;Browser öffnen</translation>
    </message>
    <message>
        <source>Open the address that is selected, or that of the site</source>
        <translation>Die ausgewählte Adresse oder die der Website öffnen</translation>
    </message>
    <message>
        <source>&amp;Find Site</source>
        <translation>Website &amp;suchen</translation>
    </message>
    <message>
        <source>Search the list of sites</source>
        <translation>Die Liste der Websites durchsuchen</translation>
    </message>
    <message>
        <source>&amp;Edit Entry</source>
        <translation>Ein&amp;trag bearbeiten</translation>
    </message>
    <message>
        <source>Change the cell of the XML sitemap that has the focus</source>
        <translation>Die Zelle der XML-Sitemap ändern, die den Fokus hat</translation>
    </message>
    <message>
        <source>Ta&amp;ke Over Values</source>
        <translation>Werte über&amp;nehmen</translation>
    </message>
    <message>
        <source>Give the entries the change frequencies and priorities that were edited in the previous sitemap</source>
        <translation>Den Einträgen die Änderungshäufigkeiten und Prioritäten geben, die in der vorherigen Sitemap bearbeitet wurden</translation>
    </message>
    <message>
        <source>&amp;Validate Sitemap</source>
        <translation>Sitemap prü&amp;fen</translation>
    </message>
    <message>
        <source>Check the XML sitemap by the rules of search engines</source>
        <translation>Die XML-Sitemap nach den Regeln der Suchmaschinen prüfen</translation>
    </message>
    <message>
        <source>&amp;Delete Link...</source>
        <translation>Link lös&amp;chen...</translation>
    </message>
    <message>
        <source>Delete the selected entry of the XML sitemap</source>
        <translation>Den ausgewählten Eintrag der XML-Sitemap löschen</translation>
    </message>
    <message>
        <source>Delete Link of &amp;HTML Sitemap...</source>
        <translation>Link der HTML-Site&amp;map löschen...</translation>
    </message>
    <message>
        <source>Delete the link that is selected in the HTML sitemap</source>
        <translation>Den in der HTML-Sitemap ausgewählten Link löschen</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchlauf</translation>
    </message>
    <message>
        <source>The list of sites and the scan</source>
        <translation>Die Liste der Websites und der Suchlauf</translation>
    </message>
    <message>
        <source>&amp;HTML Sitemap</source>
        <translation>&amp;HTML-Sitemap</translation>
    </message>
    <message>
        <source>HTML Sitemap</source>
        <translation>HTML-Sitemap</translation>
    </message>
    <message>
        <source>The HTML sitemap of the selected site</source>
        <translation>Die HTML-Sitemap der ausgewählten Website</translation>
    </message>
    <message>
        <source>S&amp;tyle</source>
        <translation>S&amp;til</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>Stil</translation>
    </message>
    <message>
        <source>How the HTML sitemap looks</source>
        <translation>Das Aussehen der HTML-Sitemap</translation>
    </message>
    <message>
        <source>&amp;XML Sitemap</source>
        <translation>&amp;XML-Sitemap</translation>
    </message>
    <message>
        <source>XML Sitemap</source>
        <translation>XML-Sitemap</translation>
    </message>
    <message>
        <source>The XML sitemap of the selected site</source>
        <translation>Die XML-Sitemap der ausgewählten Website</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Export</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Save the finished sitemaps for your website</source>
        <translation>Die fertigen Sitemaps für Ihre Website speichern</translation>
    </message>
    <message>
        <source>&amp;Upload</source>
        <translation>&amp;Upload</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>Upload</translation>
    </message>
    <message>
        <source>How to publish the sitemaps</source>
        <translation>Wie Sie die Sitemaps veröffentlichen</translation>
    </message>
    <message>
        <source>&amp;Broken Links</source>
        <translation>&amp;Defekte Links</translation>
    </message>
    <message>
        <source>Broken Links</source>
        <translation>Defekte Links</translation>
    </message>
    <message>
        <source>The broken pages of the selected site</source>
        <translation>Die defekten Seiten der ausgewählten Website</translation>
    </message>
    <message>
        <source>&amp;Scan Site</source>
        <translation>Website &amp;durchsuchen</translation>
    </message>
    <message>
        <source>Scan the selected site</source>
        <translation>Die ausgewählte Website durchsuchen</translation>
    </message>
    <message>
        <source>&amp;Continue Scan</source>
        <translation>Suchlauf &amp;fortsetzen</translation>
    </message>
    <message>
        <source>Go on with the scan of the selected site that was stopped</source>
        <translation>Den angehaltenen Suchlauf der ausgewählten Website fortsetzen</translation>
    </message>
    <message>
        <source>Restore &amp;Previous Sitemaps...</source>
        <translation>&amp;Vorherige Sitemaps wiederherstellen...</translation>
    </message>
    <message>
        <source>Put back the edited sitemaps of the selected site that a scan has replaced</source>
        <translation>Die bearbeiteten Sitemaps der ausgewählten Website zurückholen, die ein Suchlauf ersetzt hat</translation>
    </message>
    <message>
        <source>Scan Se&amp;ttings...</source>
        <translation>Suchlauf-&amp;Einstellungen...</translation>
    </message>
    <message>
        <source>Choose how the selected site is scanned</source>
        <translation>Festlegen, wie die ausgewählte Website durchsucht wird</translation>
    </message>
    <message>
        <source>Scan &amp;Report</source>
        <translation>&amp;Bericht des Suchlaufs</translation>
    </message>
    <message>
        <source>Show what the last scan of the selected site has met</source>
        <translation>Anzeigen, was der letzte Suchlauf der ausgewählten Website angetroffen hat</translation>
    </message>
    <message>
        <source>Check &amp;Outside Links...</source>
        <translation>Externe &amp;Links prüfen...</translation>
    </message>
    <message>
        <source>Ask whether what the selected site links to outside of it is still there</source>
        <translation>Nachfragen, ob die externen Ziele der Links der ausgewählten Website noch vorhanden sind</translation>
    </message>
    <message>
        <source>&amp;Filters</source>
        <translation>F&amp;ilter</translation>
    </message>
    <message>
        <source>Show the texts that keep links out of the sitemaps</source>
        <translation>Die Texte anzeigen, die Links aus den Sitemaps fernhalten</translation>
    </message>
    <message>
        <source>&amp;Add Filter</source>
        <translation>Filter &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Add a text that keeps links out of the sitemaps</source>
        <translation>Einen Text hinzufügen, der Links aus den Sitemaps fernhält</translation>
    </message>
    <message>
        <source>&amp;Delete Filter</source>
        <translation>Filter lös&amp;chen</translation>
    </message>
    <message>
        <source>Delete the selected filters</source>
        <translation>Die ausgewählten Filter löschen</translation>
    </message>
    <message>
        <source>&amp;Ignore robots.txt</source>
        <translation>&amp;robots.txt ignorieren</translation>
    </message>
    <message>
        <source>&amp;Report a Problem...</source>
        <translation>&amp;Problem melden...</translation>
    </message>
    <message>
        <source>Open the support page in the browser</source>
        <translation>Die Support-Seite im Browser öffnen</translation>
    </message>
    <message>
        <source>&amp;About Veskel</source>
        <translation>Über &amp;Veskel</translation>
    </message>
    <message>
        <source>Veskel &amp;Guide</source>
        <translation>&amp;Anleitung zu Veskel</translation>
    </message>
    <message>
        <source>Open the guide in the browser</source>
        <translation>Die Anleitung im Browser öffnen</translation>
    </message>
    <message>
        <source>Check for &amp;Updates...</source>
        <translation>Nach &amp;Updates suchen...</translation>
    </message>
    <message>
        <source>Ask whether there is a newer version of Veskel</source>
        <translation>Nachfragen, ob es eine neuere Version von Veskel gibt</translation>
    </message>
</context>
<context>
    <name>Phrases</name>
    <message>
        <source>The server could not tell its robots.txt. With robots.txt ignored it is scanned nevertheless</source>
        <translation>Der Server konnte seine robots.txt nicht mitteilen. Wird robots.txt ignoriert, wird die Website dennoch durchsucht</translation>
    </message>
    <message>
        <source>robots.txt forbids the start page (%1). With robots.txt ignored it is scanned nevertheless</source>
        <translation>robots.txt verbietet die Startseite (%1). Wird robots.txt ignoriert, wird die Website dennoch durchsucht</translation>
    </message>
    <message>
        <source>by its ending</source>
        <translation>wegen seiner Endung</translation>
    </message>
    <message>
        <source>by their ending</source>
        <translation>wegen ihrer Endung</translation>
    </message>
    <message>
        <source>to the site&apos;s host without its port</source>
        <translation>zum Host der Website ohne dessen Port</translation>
    </message>
    <message>
        <source>by the filter</source>
        <translation>durch den Filter</translation>
    </message>
    <message>
        <source>by the robots.txt rule</source>
        <translation>durch die robots.txt-Regel</translation>
    </message>
    <message>
        <source>as its address is too long</source>
        <translation>wegen seiner zu langen Adresse</translation>
    </message>
    <message>
        <source>as their addresses are too long</source>
        <translation>wegen ihrer zu langen Adressen</translation>
    </message>
    <message>
        <source>as too many stand on one page</source>
        <translation>wegen zu vieler Links auf einer Seite</translation>
    </message>
    <message>
        <source>as there are more pages than a scan can remember</source>
        <translation>wegen zu vieler Seiten für einen Suchlauf</translation>
    </message>
    <message>
        <source>below the deepest level</source>
        <translation>unterhalb der tiefsten Ebene</translation>
    </message>
    <message>
        <source>to another port</source>
        <translation>zu einem anderen Port</translation>
    </message>
    <message>
        <source>above the start folder</source>
        <translation>oberhalb des Startordners</translation>
    </message>
    <message>
        <source>as the site asks not to follow it</source>
        <translation>auf Wunsch der Website</translation>
    </message>
    <message>
        <source>as the site asks not to follow them</source>
        <translation>auf Wunsch der Website</translation>
    </message>
    <message>
        <source>as it asks to be left out</source>
        <translation>auf eigenen Wunsch</translation>
    </message>
    <message>
        <source>as they ask to be left out</source>
        <translation>auf eigenen Wunsch</translation>
    </message>
    <message>
        <source>that leads out of the site</source>
        <translation>mit Weiterleitung aus der Website hinaus</translation>
    </message>
    <message>
        <source>that lead out of the site</source>
        <translation>mit Weiterleitung aus der Website hinaus</translation>
    </message>
    <message>
        <source>to the folder of a known index page</source>
        <translation>zum Ordner einer bekannten Indexseite</translation>
    </message>
    <message>
        <source>to folders of known index pages</source>
        <translation>zu Ordnern bekannter Indexseiten</translation>
    </message>
    <message>
        <source>that leads nowhere</source>
        <translation>ohne Ziel</translation>
    </message>
    <message>
        <source>that lead nowhere</source>
        <translation>ohne Ziel</translation>
    </message>
    <message>
        <source>to another host</source>
        <translation>zu einem anderen Host</translation>
    </message>
    <message>
        <source>to other hosts</source>
        <translation>zu anderen Hosts</translation>
    </message>
    <message>
        <source>of another type</source>
        <translation>eines anderen Typs</translation>
    </message>
    <message>
        <source>of other types</source>
        <translation>anderer Typen</translation>
    </message>
    <message>
        <source>that leads to another page</source>
        <translation>mit Weiterleitung zu einer anderen Seite</translation>
    </message>
    <message>
        <source>that lead to other pages</source>
        <translation>mit Weiterleitung zu anderen Seiten</translation>
    </message>
    <message>
        <source>that is the folder&apos;s page again</source>
        <translation>als Wiederholung der Seite des Ordners</translation>
    </message>
    <message>
        <source>that are their folder&apos;s page again</source>
        <translation>als Wiederholungen der Seite ihres Ordners</translation>
    </message>
    <message>
        <source>that names another page in its place</source>
        <translation>mit Verweis auf eine andere Seite an ihrer Stelle</translation>
    </message>
    <message>
        <source>that name other pages in their place</source>
        <translation>mit Verweis auf andere Seiten an ihrer Stelle</translation>
    </message>
    <message numerus="yes">
        <source>%n page</source>
        <comment>%n pages</comment>
        <translation>
            <numerusform>%Ln Seite</numerusform>
            <numerusform>%Ln Seiten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n link</source>
        <comment>%n links</comment>
        <translation>
            <numerusform>%Ln Link</numerusform>
            <numerusform>%Ln Links</numerusform>
        </translation>
    </message>
    <message>
        <source>by further filters</source>
        <translation>durch weitere Filter</translation>
    </message>
    <message>
        <source>by further robots.txt rules</source>
        <translation>durch weitere robots.txt-Regeln</translation>
    </message>
    <message>
        <source>%1 &quot;%2&quot;</source>
        <translation>%1 „%2“</translation>
    </message>
    <message>
        <source>Left out: </source>
        <translation>Ausgelassen: </translation>
    </message>
    <message numerus="yes">
        <source>%n</source>
        <comment>%n</comment>
        <translation>
            <numerusform>%Ln</numerusform>
            <numerusform>%Ln</numerusform>
        </translation>
    </message>
    <message>
        <source> (for example %1)</source>
        <translation> (zum Beispiel %1)</translation>
    </message>
    <message numerus="yes">
        <source> and %n more for another reason</source>
        <comment> and %n more for another reason</comment>
        <translation>
            <numerusform> und %Ln weiterer aus einem anderen Grund</numerusform>
            <numerusform> und %Ln weitere aus einem anderen Grund</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more for other reasons</source>
        <comment> and %n more for other reasons</comment>
        <translation>
            <numerusform> und %Ln weiterer aus anderen Gründen</numerusform>
            <numerusform> und %Ln weitere aus anderen Gründen</numerusform>
        </translation>
    </message>
    <message>
        <source>The site holds too much for that</source>
        <translation>Die Website enthält dafür zu viel</translation>
    </message>
    <message>
        <source>This scan may not end: %1 addresses gave the same page as %2</source>
        <translation>Dieser Suchlauf endet vielleicht nicht: %1 Adressen ergaben dieselbe Seite wie %2</translation>
    </message>
    <message numerus="yes">
        <source>Waiting: the server asks for patience, %n second</source>
        <comment>Waiting: the server asks for patience, %n seconds</comment>
        <translation>
            <numerusform>Warten: Der Server bittet um Geduld, %Ln Sekunde</numerusform>
            <numerusform>Warten: Der Server bittet um Geduld, %Ln Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>The Site URL Could Not Be Reached</source>
        <translation>Die URL der Website war nicht zu erreichen</translation>
    </message>
    <message>
        <source>Error Code: </source>
        <translation>Fehlercode: </translation>
    </message>
    <message>
        <source>The Site May Not Be Scanned</source>
        <translation>Die Website darf nicht durchsucht werden</translation>
    </message>
    <message>
        <source>The Site Does Not Answer Any More</source>
        <translation>Die Website antwortet nicht mehr</translation>
    </message>
    <message>
        <source>There may be an issue with the site you are scanning.</source>
        <translation>Mit der Website, die Sie durchsuchen, gibt es vielleicht ein Problem.</translation>
    </message>
    <message>
        <source>URL parameters have been found containing multiple ?s which may be invalid.</source>
        <translation>Es wurden URL-Parameter mit mehreren ? gefunden, die ungültig sein können.</translation>
    </message>
    <message>
        <source>none is kept</source>
        <translation>keines ist hinterlegt</translation>
    </message>
    <message>
        <source>name or password were refused</source>
        <translation>Name oder Passwort wurden abgelehnt</translation>
    </message>
    <message>
        <source>the site asks for the password of &quot;%1&quot; (%2)</source>
        <translation>die Website verlangt das Passwort von „%1“ (%2)</translation>
    </message>
    <message>
        <source>%1 asks for a name and a password, and these are for the start address alone</source>
        <translation>%1 verlangt Name und Passwort, und diese gelten allein für die Startadresse</translation>
    </message>
    <message>
        <source>the site asks for a name and a password</source>
        <translation>die Website verlangt Name und Passwort</translation>
    </message>
    <message>
        <source>out of memory</source>
        <translation>Der Speicher reicht nicht aus</translation>
    </message>
    <message>
        <source>The sitemap %1 was not read in full: %2.</source>
        <translation>Die Sitemap %1 wurde nicht vollständig gelesen: %2.</translation>
    </message>
    <message>
        <source>It is an index within an index of indexes, which is not followed</source>
        <translation>Sie ist ein Index in einem Index von Indexen, dem nicht gefolgt wird</translation>
    </message>
    <message>
        <source>No more than 1,000 sitemaps of a site are read</source>
        <translation>Von einer Website werden nicht mehr als 1.000 Sitemaps gelesen</translation>
    </message>
    <message>
        <source>It names sitemaps of another site, which are not read</source>
        <translation>Sie nennt Sitemaps einer anderen Website, die nicht gelesen werden</translation>
    </message>
    <message>
        <source>It holds more than 50,000 addresses; the first ones count</source>
        <translation>Sie enthält mehr als 50.000 Adressen; die ersten zählen</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>The compressed file is damaged</source>
        <translation>Die komprimierte Datei ist beschädigt</translation>
    </message>
    <message>
        <source>It is larger than 50 MB</source>
        <translation>Sie ist größer als 50 MB</translation>
    </message>
    <message>
        <source>It is no sitemap</source>
        <translation>Sie ist keine Sitemap</translation>
    </message>
    <message>
        <source>The colour much be 6 characters, (7 with begining #) please check the colour hex value you entered.</source>
        <translation>Die Farbe muss 6 Zeichen haben (7 mit führendem #). Bitte prüfen Sie den eingegebenen Hexadezimalwert.</translation>
    </message>
    <message>
        <source>Please Select A Site To View It&apos;s Sitemap</source>
        <translation>Bitte wählen Sie eine Website aus, um ihre Sitemap zu sehen</translation>
    </message>
    <message>
        <source>No Sitemap Is Available&lt;br /&gt;Please scan this website to create the html sitemap.</source>
        <translation>Keine Sitemap vorhanden&lt;br /&gt;Bitte durchsuchen Sie diese Website, um die HTML-Sitemap zu erstellen.</translation>
    </message>
    <message>
        <source>This Sitemap Is Too Large To Show&lt;br /&gt;It has %1 MB, and up to %2 MB can be shown and edited here. It can be exported; a layout with pages only may be small enough.</source>
        <translation>Diese Sitemap ist zu groß, um angezeigt zu werden&lt;br /&gt;Sie hat %1 MB; bis zu %2 MB können hier angezeigt und bearbeitet werden. Sie kann exportiert werden; ein Layout nur mit Seiten ist vielleicht klein genug.</translation>
    </message>
    <message>
        <source>This Sitemap Is Empty&lt;br /&gt;The last scan of this website found no pages.</source>
        <translation>Diese Sitemap ist leer&lt;br /&gt;Der letzte Suchlauf dieser Website hat keine Seiten gefunden.</translation>
    </message>
    <message>
        <source>The Last Scan Did Not Finish&lt;br /&gt;Please scan this website again to create the html sitemap.</source>
        <translation>Der letzte Suchlauf wurde nicht beendet&lt;br /&gt;Bitte durchsuchen Sie diese Website noch einmal, um die HTML-Sitemap zu erstellen.</translation>
    </message>
    <message>
        <source>Another program has changed it.</source>
        <translation>Ein anderes Programm hat sie geändert.</translation>
    </message>
    <message>
        <source>The title field cannot be left blank, please enter a title for this page.</source>
        <translation>Das Feld für den Titel darf nicht leer bleiben. Bitte geben Sie einen Titel für diese Seite ein.</translation>
    </message>
    <message>
        <source>The link field cannot be left blank, please enter the link for this page.</source>
        <translation>Das Feld für den Link darf nicht leer bleiben. Bitte geben Sie den Link für diese Seite ein.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB</source>
        <translation>Die Datei ist größer als %1 MB</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>the new content is in place, but its folder could not be synced: %1</source>
        <translation>der neue Inhalt ist geschrieben, aber sein Ordner konnte nicht mit dem Datenträger abgeglichen werden: %1</translation>
    </message>
    <message>
        <source>; the file could not be cut back: %1</source>
        <translation>; die Datei konnte nicht zurückgeschnitten werden: %1</translation>
    </message>
    <message>
        <source>it has to look like &quot;Name: value&quot;, with a name of letters, digits and hyphens</source>
        <translation>die Form muss „Name: Wert“ sein, mit einem Namen aus Buchstaben, Ziffern und Bindestrichen</translation>
    </message>
    <message>
        <source>the user agent is a setting of its own</source>
        <translation>der User-Agent ist eine eigene Einstellung</translation>
    </message>
    <message>
        <source>name and password for HTTP authentication are given in another way</source>
        <translation>Name und Passwort für die HTTP-Authentifizierung werden auf anderem Weg angegeben</translation>
    </message>
    <message>
        <source>the program sees to &quot;%1&quot; itself</source>
        <translation>das Programm kümmert sich selbst um „%1“</translation>
    </message>
    <message>
        <source>it cannot contain line breaks, other control characters or invalid UTF-8</source>
        <translation>Zeilenumbrüche, andere Steuerzeichen und ungültiges UTF-8 sind nicht erlaubt</translation>
    </message>
    <message>
        <source>it is longer than %1 bytes</source>
        <translation>es sind mehr als %1 Bytes</translation>
    </message>
    <message>
        <source>it cannot contain a colon</source>
        <translation>ein Doppelpunkt ist nicht erlaubt</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>The address is not a valid http or https URL</source>
        <translation>Die Adresse ist keine gültige http- oder https-URL</translation>
    </message>
    <message>
        <source>The host name could not be resolved</source>
        <translation>Der Hostname konnte nicht aufgelöst werden</translation>
    </message>
    <message>
        <source>The server could not be reached</source>
        <translation>Der Server war nicht zu erreichen</translation>
    </message>
    <message>
        <source>No secure connection: handshake or certificate failed</source>
        <translation>Keine sichere Verbindung: Handshake oder Zertifikat sind gescheitert</translation>
    </message>
    <message>
        <source>No certificates of trusted authorities are installed (package ca-certificates)</source>
        <translation>Es sind keine Zertifikate vertrauenswürdiger Stellen installiert (Paket ca-certificates)</translation>
    </message>
    <message>
        <source>The server took too long</source>
        <translation>Der Server brauchte zu lange</translation>
    </message>
    <message>
        <source>The page took longer than ten minutes</source>
        <translation>Die Seite brauchte länger als zehn Minuten</translation>
    </message>
    <message>
        <source>The answer was broken off or malformed</source>
        <translation>Die Antwort wurde abgebrochen oder war fehlerhaft</translation>
    </message>
    <message>
        <source>The answer is too large</source>
        <translation>Die Antwort ist zu groß</translation>
    </message>
    <message>
        <source>Too many redirects</source>
        <translation>Zu viele Weiterleitungen</translation>
    </message>
    <message>
        <source>The address is a private one</source>
        <translation>Die Adresse ist eine private</translation>
    </message>
    <message>
        <source>Redirected to an address that is not http or https</source>
        <translation>Weiterleitung zu einer Adresse, die weder http noch https ist</translation>
    </message>
    <message>
        <source>The content encoding is broken or unknown</source>
        <translation>Die Kodierung des Inhalts ist defekt oder unbekannt</translation>
    </message>
    <message>
        <source>The transfer failed</source>
        <translation>Die Übertragung ist gescheitert</translation>
    </message>
    <message>
        <source>there is no secret service</source>
        <translation>es gibt keinen Dienst für Passwörter</translation>
    </message>
    <message>
        <source>the secret service is locked</source>
        <translation>der Dienst für Passwörter ist gesperrt</translation>
    </message>
    <message>
        <source>the secret service did not answer in time</source>
        <translation>der Dienst für Passwörter hat nicht rechtzeitig geantwortet</translation>
    </message>
    <message>
        <source>The text is not well-formed</source>
        <translation>Der Text ist nicht wohlgeformt</translation>
    </message>
    <message>
        <source>A bare &quot;&amp;&quot; stands in the text</source>
        <translation>Ein bloßes „&amp;“ steht im Text</translation>
    </message>
    <message>
        <source>A bare &quot;&lt;&quot; stands in the text</source>
        <translation>Ein bloßes „&lt;“ steht im Text</translation>
    </message>
    <message>
        <source>The text is too long to be read</source>
        <translation>Der Text ist zu lang, um gelesen zu werden</translation>
    </message>
    <message>
        <source>There is not enough memory to read the text</source>
        <translation>Der Speicher reicht nicht aus, um den Text zu lesen</translation>
    </message>
    <message>
        <source>A tag is too long</source>
        <translation>Ein Tag ist zu lang</translation>
    </message>
    <message>
        <source>Found, but left out %1.</source>
        <translation>Gefunden, aber %1 ausgelassen.</translation>
    </message>
    <message>
        <source>Found on %1, but left out %2.</source>
        <translation>Auf %1 gefunden, aber %2 ausgelassen.</translation>
    </message>
    <message numerus="yes">
        <source>It lies outside of the site: %Ln page links to it, and sitemaps name pages of the site only.</source>
        <comment>It lies outside of the site: %Ln pages link to it, and sitemaps name pages of the site only.</comment>
        <translation>
            <numerusform>Sie liegt außerhalb der Website: %Ln Seite verweist darauf, und Sitemaps nennen nur Seiten der Website.</numerusform>
            <numerusform>Sie liegt außerhalb der Website: %Ln Seiten verweisen darauf, und Sitemaps nennen nur Seiten der Website.</numerusform>
        </translation>
    </message>
    <message>
        <source>It lies outside of the site, which is all below %1.</source>
        <translation>Sie liegt außerhalb der Website, die ganz unterhalb von %1 liegt.</translation>
    </message>
    <message>
        <source>The filter %1 keeps it out.</source>
        <translation>Der Filter %1 hält sie fern.</translation>
    </message>
    <message>
        <source>Addresses that end in %1 are left out.</source>
        <translation>Adressen, die auf %1 enden, werden ausgelassen.</translation>
    </message>
    <message>
        <source>In the sitemaps</source>
        <translation>In den Sitemaps</translation>
    </message>
    <message>
        <source>Broken: %1</source>
        <translation>Defekt: %1</translation>
    </message>
    <message>
        <source>Left out, as it is a list of files that the server made</source>
        <translation>Ausgelassen, da sie eine vom Server erzeugte Dateiliste ist</translation>
    </message>
    <message>
        <source>Left out, as it leads to another page</source>
        <translation>Ausgelassen, da sie zu einer anderen Seite führt</translation>
    </message>
    <message>
        <source>Left out, as it leads to %1</source>
        <translation>Ausgelassen, da sie zu %1 führt</translation>
    </message>
    <message>
        <source>Left out, as it is its folder&apos;s page again</source>
        <translation>Ausgelassen, da sie die Seite ihres Ordners wiederholt</translation>
    </message>
    <message>
        <source>Left out, as it names another page in its place</source>
        <translation>Ausgelassen, da sie eine andere Seite an ihrer Stelle nennt</translation>
    </message>
    <message>
        <source>Left out, as it is of another type</source>
        <translation>Ausgelassen, da sie von einem anderen Typ ist</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Ausgelassen</translation>
    </message>
    <message>
        <source>Left out, %1</source>
        <translation>Ausgelassen %1</translation>
    </message>
    <message>
        <source>No page of the last complete scan links to it.</source>
        <translation>Keine Seite des letzten vollständigen Suchlaufs verweist darauf.</translation>
    </message>
    <message>
        <source> Or it is one of %1 links that were left out and are only counted.</source>
        <translation> Oder sie ist einer von %1 Links, die ausgelassen und nur gezählt wurden.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln page new</source>
        <comment>%Ln pages new</comment>
        <translation>
            <numerusform>%Ln Seite neu</numerusform>
            <numerusform>%Ln Seiten neu</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2 gone, %3 renamed.
Newly broken: %4, repaired: %5.</source>
        <translation>%1, %2 verschwunden, %3 umbenannt.
Neu defekt: %4, repariert: %5.</translation>
    </message>
    <message>
        <source>The report is damaged. The next scan makes a new one.</source>
        <translation>Der Bericht ist beschädigt. Der nächste Suchlauf erstellt einen neuen.</translation>
    </message>
    <message>
        <source>The report cannot be read: %1</source>
        <translation>Der Bericht kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Nothing is known of the links of this scan. The next scan will keep where they stand.</source>
        <translation>Über die Links dieses Suchlaufs ist nichts bekannt. Der nächste Suchlauf merkt sich, wo sie stehen.</translation>
    </message>
    <message>
        <source>The last scan did not come to its end. Where links stand is kept of complete scans only.</source>
        <translation>Der letzte Suchlauf kam nicht zu seinem Ende. Wo Links stehen, wird nur von vollständigen Suchläufen aufbewahrt.</translation>
    </message>
    <message>
        <source>This is a bound of every scan, and no setting changes it. A filter keeps endless addresses out.</source>
        <translation>Dies ist eine Grenze jedes Suchlaufs, die keine Einstellung ändert. Ein Filter hält endlose Adressen fern.</translation>
    </message>
    <message>
        <source>They lead to another site: link there, or add it as a site of its own.</source>
        <translation>Sie führen zu einer anderen Website: Verweisen Sie dorthin, oder fügen Sie sie als eigene Website hinzu.</translation>
    </message>
    <message>
        <source>Pages with other endings are found when Links in the Scan Settings is set to As browsers do.</source>
        <translation>Seiten mit anderen Endungen werden gefunden, wenn in den Suchlauf-Einstellungen für Links „Wie Browser“ gewählt ist.</translation>
    </message>
    <message>
        <source>Simple links lose the port of addresses that begin with a slash. They are found when Links in the Scan Settings is set to As browsers do.</source>
        <translation>Einfache Links verlieren den Port von Adressen, die mit einem Schrägstrich beginnen. Sie werden gefunden, wenn in den Suchlauf-Einstellungen für Links „Wie Browser“ gewählt ist.</translation>
    </message>
    <message>
        <source>A filter of the site does this: delete it in the Filters beside the Scan view.</source>
        <translation>Das tut ein Filter der Website: Löschen Sie ihn unter Filter neben der Ansicht Suchlauf.</translation>
    </message>
    <message>
        <source>The site&apos;s robots.txt asks for it: Ignore robots.txt in the Scan view has them scanned all the same.</source>
        <translation>Die robots.txt der Website wünscht es so: Mit „robots.txt ignorieren“ in der Ansicht Suchlauf werden sie trotzdem durchsucht.</translation>
    </message>
    <message>
        <source>Raise Deepest level in the Scan Settings, or set it to 0.</source>
        <translation>Erhöhen Sie in den Suchlauf-Einstellungen die tiefste Ebene, oder setzen Sie sie auf 0.</translation>
    </message>
    <message>
        <source>A scan stays below its start: a Site URL further up, in Edit Site, takes them in, or a site of their own.</source>
        <translation>Ein Suchlauf bleibt unterhalb seines Starts: Eine weiter oben liegende URL der Website nimmt sie auf (Website bearbeiten), oder eine eigene Website.</translation>
    </message>
    <message>
        <source>The pages themselves ask for it (nofollow, noindex). With Links in the Scan Settings set to Simple that is not heeded.</source>
        <translation>Die Seiten selbst wünschen es so (nofollow, noindex). Ist in den Suchlauf-Einstellungen für Links „Einfach“ gewählt, wird das nicht beachtet.</translation>
    </message>
    <message>
        <source>Fine</source>
        <translation>In Ordnung</translation>
    </message>
    <message>
        <source>Moved</source>
        <translation>Umgezogen</translation>
    </message>
    <message>
        <source>Broken</source>
        <translation>Defekt</translation>
    </message>
    <message>
        <source>Could not be checked</source>
        <translation>Nicht prüfbar</translation>
    </message>
    <message>
        <source>Moved to %1</source>
        <translation>Umgezogen nach %1</translation>
    </message>
    <message>
        <source>The certificate ended on %1</source>
        <translation>Das Zertifikat ist am %1 abgelaufen</translation>
    </message>
    <message>
        <source>The certificate ends on %1</source>
        <translation>Das Zertifikat läuft am %1 ab</translation>
    </message>
    <message>
        <source>; the certificate ended on %1</source>
        <translation>; das Zertifikat ist am %1 abgelaufen</translation>
    </message>
    <message>
        <source>; the certificate ends on %1</source>
        <translation>; das Zertifikat läuft am %1 ab</translation>
    </message>
    <message>
        <source>These links were not checked yet.</source>
        <translation>Diese Links wurden noch nicht geprüft.</translation>
    </message>
    <message>
        <source>The check of %1 was stopped: %2 asked, %3 broken, %4 moved, %5 could not be checked.</source>
        <translation>Die Prüfung vom %1 wurde angehalten: %2 abgefragt, %3 defekt, %4 umgezogen, %5 nicht prüfbar.</translation>
    </message>
    <message>
        <source>Checked on %1: %2 asked, %3 broken, %4 moved, %5 could not be checked.</source>
        <translation>Geprüft am %1: %2 abgefragt, %3 defekt, %4 umgezogen, %5 nicht prüfbar.</translation>
    </message>
    <message numerus="yes">
        <source> %Ln link was not asked yet.</source>
        <comment> %Ln links were not asked yet.</comment>
        <translation>
            <numerusform> %Ln Link wurde noch nicht abgefragt.</numerusform>
            <numerusform> %Ln Links wurden noch nicht abgefragt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> %Ln link was met since then.</source>
        <comment> %Ln links were met since then.</comment>
        <translation>
            <numerusform> %Ln Link ist seither dazugekommen.</numerusform>
            <numerusform> %Ln Links sind seither dazugekommen.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2 pages, %3 broken. </source>
        <translation>%1: %2 Seiten, %3 defekt. </translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Pages over the scans</source>
        <translation>Seiten im Lauf der Suchläufe</translation>
    </message>
    <message>
        <source>There is no complete scan yet.</source>
        <translation>Es gibt noch keinen vollständigen Suchlauf.</translation>
    </message>
    <message>
        <source>There are no pages.</source>
        <translation>Es gibt keine Seiten.</translation>
    </message>
    <message>
        <source>Pages by status</source>
        <translation>Seiten nach Status</translation>
    </message>
    <message>
        <source>Pages by links from the start page</source>
        <translation>Seiten nach Links von der Startseite</translation>
    </message>
    <message>
        <source>Pages by time to answer</source>
        <translation>Seiten nach Antwortzeit</translation>
    </message>
    <message>
        <source>damaged</source>
        <translation>beschädigt</translation>
    </message>
    <message>
        <source>written by a newer version of this program</source>
        <translation>von einer neueren Version dieses Programms geschrieben</translation>
    </message>
    <message>
        <source>written by an older version of this program</source>
        <translation>von einer älteren Version dieses Programms geschrieben</translation>
    </message>
    <message>
        <source>The report is %1</source>
        <translation>Der Bericht ist %1</translation>
    </message>
    <message>
        <source>The report of the scans before is %1; it was set aside as %2.</source>
        <translation>Der Bericht der früheren Suchläufe ist %1; er wurde beiseitegelegt als %2.</translation>
    </message>
    <message>
        <source>No complete scan of %1 is kept: scan it first.</source>
        <translation>Von %1 ist kein vollständiger Suchlauf aufbewahrt: Durchsuchen Sie die Website zuerst.</translation>
    </message>
    <message>
        <source>The links of %1 are being checked already.</source>
        <translation>Die Links von %1 werden bereits geprüft.</translation>
    </message>
    <message>
        <source>The site %1 is being scanned.</source>
        <translation>Die Website %1 wird gerade durchsucht.</translation>
    </message>
    <message>
        <source>The report of %1 cannot be used: %2.</source>
        <translation>Der Bericht von %1 ist nicht verwendbar: %2.</translation>
    </message>
    <message>
        <source>The site is not there any more</source>
        <translation>Die Website ist nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Another program writes it</source>
        <translation>Ein anderes Programm schreibt ihn</translation>
    </message>
    <message>
        <source>The report is damaged</source>
        <translation>Der Bericht ist beschädigt</translation>
    </message>
    <message>
        <source>Under 50 ms</source>
        <translation>Unter 50 ms</translation>
    </message>
    <message>
        <source>50 to 100 ms</source>
        <translation>50 bis 100 ms</translation>
    </message>
    <message>
        <source>100 to 200 ms</source>
        <translation>100 bis 200 ms</translation>
    </message>
    <message>
        <source>200 to 500 ms</source>
        <translation>200 bis 500 ms</translation>
    </message>
    <message>
        <source>0.5 to 1 s</source>
        <translation>0,5 bis 1 s</translation>
    </message>
    <message>
        <source>1 to 2 s</source>
        <translation>1 bis 2 s</translation>
    </message>
    <message>
        <source>2 to 5 s</source>
        <translation>2 bis 5 s</translation>
    </message>
    <message>
        <source>5 s and more</source>
        <translation>5 s und mehr</translation>
    </message>
    <message>
        <source>2xx answered</source>
        <translation>2xx beantwortet</translation>
    </message>
    <message>
        <source>3xx redirected</source>
        <translation>3xx weitergeleitet</translation>
    </message>
    <message>
        <source>4xx not there</source>
        <translation>4xx nicht da</translation>
    </message>
    <message>
        <source>5xx server error</source>
        <translation>5xx Serverfehler</translation>
    </message>
    <message>
        <source>No answer</source>
        <translation>Keine Antwort</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Level %1</source>
        <translation>Ebene %1</translation>
    </message>
    <message>
        <source>Level %1 and more</source>
        <translation>Ebene %1 und mehr</translation>
    </message>
    <message>
        <source>the record lacks a counter</source>
        <translation>dem Datensatz fehlt ein Zähler</translation>
    </message>
    <message>
        <source>a file of this name exists</source>
        <translation>es gibt eine Datei dieses Namens</translation>
    </message>
    <message>
        <source>The edited sitemaps of before could not be kept: %1</source>
        <translation>Die zuvor bearbeiteten Sitemaps konnten nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>What was written could not be remembered, so that the next scan takes it for edited: %1</source>
        <translation>Das Geschriebene konnte nicht gemerkt werden, sodass der nächste Suchlauf es für bearbeitet hält: %1</translation>
    </message>
    <message>
        <source>The edited values could not be kept: %1</source>
        <translation>Die bearbeiteten Werte konnten nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>Single Column, Pages Only</source>
        <translation>Eine Spalte, nur Seiten</translation>
    </message>
    <message>
        <source>Single Column, All Links</source>
        <translation>Eine Spalte, alle Links</translation>
    </message>
    <message>
        <source>Two Columns, Pages Only</source>
        <translation>Zwei Spalten, nur Seiten</translation>
    </message>
    <message>
        <source>Two Columns, All Links</source>
        <translation>Zwei Spalten, alle Links</translation>
    </message>
    <message>
        <source>Three Columns, Pages Only</source>
        <translation>Drei Spalten, nur Seiten</translation>
    </message>
    <message>
        <source>Three Columns, All Links</source>
        <translation>Drei Spalten, alle Links</translation>
    </message>
    <message>
        <source>The file is not valid UTF-8.</source>
        <translation>Die Datei ist kein gültiges UTF-8.</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>nicht genug Speicher</translation>
    </message>
    <message>
        <source>The sitemap you are trying to export could not be found, please make sure you have scanned your site before exporting.</source>
        <translation>Die Sitemap, die Sie exportieren möchten, wurde nicht gefunden. Bitte achten Sie darauf, Ihre Website vor dem Export zu durchsuchen.</translation>
    </message>
    <message>
        <source>An error has occurred while exporting your sitemap, you may need to re-scan the site.
</source>
        <translation>Beim Export Ihrer Sitemap ist ein Fehler aufgetreten. Vielleicht müssen Sie die Website noch einmal durchsuchen.
</translation>
    </message>
    <message>
        <source>The sitemap has no entry</source>
        <translation>Die Sitemap hat keinen Eintrag</translation>
    </message>
    <message>
        <source>The sitemap has %1 entries; at most 50000 are allowed</source>
        <translation>Die Sitemap hat %1 Einträge; höchstens 50000 sind erlaubt</translation>
    </message>
    <message>
        <source>The index has no entry</source>
        <translation>Der Index hat keinen Eintrag</translation>
    </message>
    <message>
        <source>The index has %1 entries; at most 50000 are allowed</source>
        <translation>Der Index hat %1 Einträge; höchstens 50000 sind erlaubt</translation>
    </message>
    <message>
        <source>A document type has no place in a sitemap</source>
        <translation>Ein Dokumenttyp gehört nicht in eine Sitemap</translation>
    </message>
    <message>
        <source>The file is larger than 50 MB (52,428,800 bytes)</source>
        <translation>Die Datei ist größer als 50 MB (52.428.800 Bytes)</translation>
    </message>
    <message>
        <source>The text is not UTF-8</source>
        <translation>Der Text ist kein UTF-8</translation>
    </message>
    <message>
        <source>The encoding is declared as %1; it has to be UTF-8</source>
        <translation>Als Kodierung ist %1 angegeben; es muss UTF-8 sein</translation>
    </message>
    <message>
        <source>The element holds another one, %1</source>
        <translation>Das Element enthält ein weiteres, %1</translation>
    </message>
    <message>
        <source>An element %1 stands where only entries (%2) may stand</source>
        <translation>Ein Element %1 steht, wo nur Einträge (%2) stehen dürfen</translation>
    </message>
    <message>
        <source>The outermost element is %1 instead of %2</source>
        <translation>Das äußerste Element ist %1 statt %2</translation>
    </message>
    <message>
        <source>The namespace is missing: xmlns=&quot;%1&quot;</source>
        <translation>Der Namensraum fehlt: xmlns=&quot;%1&quot;</translation>
    </message>
    <message>
        <source>The namespace is %1 instead of &quot;%2&quot;</source>
        <translation>Der Namensraum ist %1 statt „%2“</translation>
    </message>
    <message>
        <source>The entry stands within another element than %1</source>
        <translation>Der Eintrag steht in einem anderen Element als %1</translation>
    </message>
    <message>
        <source>An entry has no element %1</source>
        <translation>Ein Eintrag hat kein Element %1</translation>
    </message>
    <message>
        <source>The element %1 is of another namespace, %2, which the schema of sitemaps does not cover</source>
        <translation>Das Element %1 gehört zu einem anderen Namensraum, %2, den das Schema der Sitemaps nicht umfasst</translation>
    </message>
    <message>
        <source>The element stands twice in its entry</source>
        <translation>Das Element steht zweimal in seinem Eintrag</translation>
    </message>
    <message>
        <source>The element is out of order: %1</source>
        <translation>Das Element steht nicht in der richtigen Reihenfolge: %1</translation>
    </message>
    <message>
        <source>The element has an attribute %1, which is not allowed</source>
        <translation>Das Element hat ein Attribut %1, das nicht erlaubt ist</translation>
    </message>
    <message>
        <source>Text stands between the elements</source>
        <translation>Zwischen den Elementen steht Text</translation>
    </message>
    <message>
        <source>The entry has no address (loc)</source>
        <translation>Der Eintrag hat keine Adresse (loc)</translation>
    </message>
    <message>
        <source>The element is empty; it needs a value, or has to be left out</source>
        <translation>Das Element ist leer; es braucht einen Wert oder muss entfallen</translation>
    </message>
    <message>
        <source>%1 is not on the host of the first entry, %2</source>
        <translation>%1 liegt nicht auf dem Host des ersten Eintrags, %2</translation>
    </message>
    <message>
        <source>%1 is not on the host of the site, %2</source>
        <translation>%1 liegt nicht auf dem Host der Website, %2</translation>
    </message>
    <message>
        <source>The address stands in entry %1 already</source>
        <translation>Die Adresse steht schon in Eintrag %1</translation>
    </message>
    <message>
        <source>%1 is not a date of the form YYYY-MM-DD or YYYY-MM-DDThh:mm:ss+hh:mm</source>
        <translation>%1 ist kein Datum der Form JJJJ-MM-TT oder JJJJ-MM-TTThh:mm:ss+hh:mm</translation>
    </message>
    <message>
        <source>The address is empty</source>
        <translation>Die Adresse ist leer</translation>
    </message>
    <message>
        <source>The address has %1 characters; at most 2047 are allowed</source>
        <translation>Die Adresse hat %1 Zeichen; höchstens 2047 sind erlaubt</translation>
    </message>
    <message>
        <source>The address holds a blank, which has to be percent-encoded</source>
        <translation>Die Adresse enthält ein Leerzeichen, das prozentkodiert sein muss</translation>
    </message>
    <message>
        <source>The address holds %1, which has to be percent-encoded</source>
        <translation>Die Adresse enthält %1; das muss prozentkodiert sein</translation>
    </message>
    <message>
        <source>%1 is not an absolute address of http or https</source>
        <translation>%1 ist keine absolute Adresse mit http oder https</translation>
    </message>
    <message>
        <source>The address has fewer than 12 characters, the least that the schema takes</source>
        <translation>Die Adresse hat weniger als 12 Zeichen, das Mindeste, was das Schema annimmt</translation>
    </message>
    <message>
        <source>%1 is not a day of the calendar</source>
        <translation>%1 ist kein Tag des Kalenders</translation>
    </message>
    <message>
        <source>%1 lies in the future</source>
        <translation>%1 liegt in der Zukunft</translation>
    </message>
    <message>
        <source>%1 is none of always, hourly, daily, weekly, monthly, yearly and never</source>
        <translation>%1 ist keines von always, hourly, daily, weekly, monthly, yearly und never</translation>
    </message>
    <message>
        <source>%1 is not a number from 0.0 to 1.0</source>
        <translation>%1 ist keine Zahl von 0.0 bis 1.0</translation>
    </message>
    <message>
        <source>The record has no URL.</source>
        <translation>Der Datensatz hat keine URL.</translation>
    </message>
    <message>
        <source>The record has no robots switch.</source>
        <translation>Der Datensatz hat keinen Schalter für robots.txt.</translation>
    </message>
    <message>
        <source>A site with the name &quot;%1&quot; already exists, please delete this site first or select a different name.</source>
        <translation>Eine Website mit dem Namen „%1“ gibt es schon. Bitte löschen Sie sie zuerst, oder wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>A file of this name is in the way.</source>
        <translation>Eine Datei dieses Namens ist im Weg.</translation>
    </message>
    <message>
        <source>No site has such a name.</source>
        <translation>Keine Website hat einen solchen Namen.</translation>
    </message>
    <message>
        <source>The site you are trying to create already exists, please select a different name.</source>
        <translation>Die Website, die Sie anlegen möchten, gibt es schon. Bitte wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>Could not delete %1: %2</source>
        <translation>%1 konnte nicht gelöscht werden: %2</translation>
    </message>
    <message>
        <source>Could not write the upgraded record %1: %2</source>
        <translation>Der aktualisierte Datensatz %1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Could not read the older record %1: %2</source>
        <translation>Der ältere Datensatz %1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>It is not a site record.</source>
        <translation>Es ist kein Datensatz einer Website.</translation>
    </message>
    <message>
        <source>Could not upgrade %1: %2</source>
        <translation>%1 konnte nicht aktualisiert werden: %2</translation>
    </message>
    <message>
        <source>Could not finish the renaming to %1: %2</source>
        <translation>Die Umbenennung in %1 konnte nicht abgeschlossen werden: %2</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Could not take along %1: %2</source>
        <translation>%1 konnte nicht mitgenommen werden: %2</translation>
    </message>
    <message>
        <source>The site name field cannot be left blank.</source>
        <translation>Das Feld für den Namen der Website darf nicht leer bleiben.</translation>
    </message>
    <message>
        <source>
The site name cannot contain the following characters: / \ . or ?</source>
        <translation>
Der Name der Website darf die folgenden Zeichen nicht enthalten: / \ . oder ?</translation>
    </message>
    <message>
        <source>
The site URL field cannot be left blank.</source>
        <translation>
Das Feld für die URL der Website darf nicht leer bleiben.</translation>
    </message>
    <message>
        <source>
URLs must begin http:// or https://
ftp:// etc scans are not available.</source>
        <translation>
URLs müssen mit http:// oder https:// beginnen.
Suchläufe über ftp:// usw. sind nicht möglich.</translation>
    </message>
    <message>
        <source>The site is being scanned.</source>
        <translation>Die Website wird gerade durchsucht.</translation>
    </message>
    <message>
        <source>%1 or more</source>
        <translation>%1 oder mehr</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>0 (%1) to %2 seconds</source>
        <translation>0 (%1) bis %2 Sekunden</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>text, or nothing (%1)</source>
        <translation>Text oder nichts (%1)</translation>
    </message>
    <message>
        <source>it has to be %1</source>
        <translation>zulässig ist %1</translation>
    </message>
    <message>
        <source>The site&apos;s setting &quot;%1&quot; was ignored: %2.</source>
        <translation>Die Einstellung „%1“ der Website wurde ignoriert: %2.</translation>
    </message>
    <message>
        <source>The site&apos;s settings were ignored: %1: %2.</source>
        <translation>Die Einstellungen der Website wurden ignoriert: %1: %2.</translation>
    </message>
    <message>
        <source>Simple</source>
        <translation>Einfach</translation>
    </message>
    <message>
        <source>As browsers do</source>
        <translation>Wie Browser</translation>
    </message>
    <message>
        <source>Passed over</source>
        <translation>Nicht beachtet</translation>
    </message>
    <message>
        <source>Their pages are scanned, too</source>
        <translation>Auch ihre Seiten werden durchsucht</translation>
    </message>
    <message>
        <source>Dropped</source>
        <translation>Verworfen</translation>
    </message>
    <message>
        <source>Taken over</source>
        <translation>Übernommen</translation>
    </message>
    <message>
        <source>&amp;Links</source>
        <translation>&amp;Links</translation>
    </message>
    <message>
        <source>As browsers do, every page is found that a browser reaches</source>
        <translation>Wie Browser: Jede Seite wird gefunden, die ein Browser erreicht</translation>
    </message>
    <message>
        <source>Its &amp;sitemaps</source>
        <translation>Eigene &amp;Sitemaps</translation>
    </message>
    <message>
        <source>The sitemaps that the site has already may name pages to which no link leads</source>
        <translation>Die Sitemaps, die die Website schon hat, können Seiten nennen, zu denen kein Link führt</translation>
    </message>
    <message>
        <source>&amp;Edited values</source>
        <translation>&amp;Bearbeitete Werte</translation>
    </message>
    <message>
        <source>Change frequencies and priorities that were edited go into the new entries of the same addresses</source>
        <translation>Bearbeitete Änderungshäufigkeiten und Prioritäten kommen in die neuen Einträge derselben Adressen</translation>
    </message>
    <message>
        <source>Most &amp;pages</source>
        <translation>&amp;Höchstens Seiten</translation>
    </message>
    <message>
        <source>A scan stops after so many pages</source>
        <translation>Ein Suchlauf hält nach so vielen Seiten an</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>unbegrenzt</translation>
    </message>
    <message>
        <source>Deepest le&amp;vel</source>
        <translation>&amp;Tiefste Ebene</translation>
    </message>
    <message>
        <source>Pages up to so many links away from the start page are scanned</source>
        <translation>Seiten, die bis zu so viele Links von der Startseite entfernt sind, werden durchsucht</translation>
    </message>
    <message>
        <source>&amp;Connections</source>
        <translation>&amp;Verbindungen</translation>
    </message>
    <message>
        <source>So many pages are fetched at the same time</source>
        <translation>So viele Seiten werden gleichzeitig geholt</translation>
    </message>
    <message>
        <source>&amp;Delay</source>
        <translation>&amp;Abstand</translation>
    </message>
    <message>
        <source>Between the starts of two requests passes at least so long</source>
        <translation>Zwischen dem Beginn zweier Anfragen vergeht mindestens so viel Zeit</translation>
    </message>
    <message>
        <source>no delay</source>
        <translation>kein Abstand</translation>
    </message>
    <message>
        <source>&amp;User agent</source>
        <translation>&amp;User-Agent</translation>
    </message>
    <message>
        <source>So the program calls itself, to servers and to rules in robots.txt</source>
        <translation>So nennt sich das Programm gegenüber Servern und Regeln in robots.txt</translation>
    </message>
    <message>
        <source>its own name and version</source>
        <translation>der eigene Name und die Version</translation>
    </message>
    <message>
        <source>&amp;Header lines</source>
        <translation>&amp;Kopfzeilen</translation>
    </message>
    <message>
        <source>Sent with every request to the site&apos;s own server, and to no other</source>
        <translation>Werden mit jeder Anfrage an den eigenen Server der Website gesendet und an keinen anderen</translation>
    </message>
    <message>
        <source>Name: value</source>
        <translation>Name: Wert</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>For a site that asks for a name and a password (HTTP authentication)</source>
        <translation>Für eine Website, die Name und Passwort verlangt (HTTP-Authentifizierung)</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>No new folder could be made.</source>
        <translation>Es konnte kein neuer Ordner angelegt werden.</translation>
    </message>
    <message>
        <source>always</source>
        <translation>ständig</translation>
    </message>
    <message>
        <source>hourly</source>
        <translation>stündlich</translation>
    </message>
    <message>
        <source>daily</source>
        <translation>täglich</translation>
    </message>
    <message>
        <source>weekly</source>
        <translation>wöchentlich</translation>
    </message>
    <message>
        <source>monthly</source>
        <translation>monatlich</translation>
    </message>
    <message>
        <source>yearly</source>
        <translation>jährlich</translation>
    </message>
    <message>
        <source>never</source>
        <translation>nie</translation>
    </message>
    <message>
        <source>The URL field cannot be left blank</source>
        <translation>Das Feld URL darf nicht leer bleiben</translation>
    </message>
    <message>
        <source>The Last Updated field cannot be left blank</source>
        <translation>Das Feld Zuletzt geändert darf nicht leer bleiben</translation>
    </message>
    <message>
        <source>The Change Frequency field cannot be left blank</source>
        <translation>Das Feld Änderungshäufigkeit darf nicht leer bleiben</translation>
    </message>
    <message>
        <source>The Link Priority field cannot be left blank</source>
        <translation>Das Feld Priorität darf nicht leer bleiben</translation>
    </message>
    <message>
        <source>The Last Updated date format must be yyyy-mm-dd (%1)</source>
        <translation>Das Datum unter Zuletzt geändert muss die Form jjjj-mm-tt haben (%1)</translation>
    </message>
    <message>
        <source>The month must be a number between 01 and 12</source>
        <translation>Der Monat muss eine Zahl zwischen 01 und 12 sein</translation>
    </message>
    <message>
        <source>The day must be a number between 01 and 31</source>
        <translation>Der Tag muss eine Zahl zwischen 01 und 31 sein</translation>
    </message>
    <message>
        <source>An entry of the sitemap has no %1 element, so the sitemap cannot be written.</source>
        <translation>Ein Eintrag der Sitemap hat kein Element %1, daher kann die Sitemap nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The site is being scanned. Try again when that has finished.</source>
        <translation>Die Website wird gerade durchsucht. Versuchen Sie es danach noch einmal.</translation>
    </message>
    <message>
        <source>Another program has changed the sitemap, so your change was not made.</source>
        <translation>Ein anderes Programm hat die Sitemap geändert, daher wurde Ihre Änderung nicht ausgeführt.</translation>
    </message>
    <message>
        <source>The sitemap could not be saved: %1</source>
        <translation>Die Sitemap konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>It is no list of versions</source>
        <translation>Sie ist keine Liste von Versionen</translation>
    </message>
    <message>
        <source>The server leads to %1, which is not https</source>
        <translation>Der Server leitet zu %1 weiter, und das ist nicht https</translation>
    </message>
    <message>
        <source>The server answers %1 - %2</source>
        <translation>Der Server antwortet %1 - %2</translation>
    </message>
    <message>
        <source>They are no text</source>
        <translation>Sie sind kein Text</translation>
    </message>
    <message>
        <source>The address is not https, and was not asked</source>
        <translation>Die Adresse ist nicht https und wurde nicht abgefragt</translation>
    </message>
    <message>
        <source>It names no version</source>
        <translation>Sie nennt keine Version</translation>
    </message>
    <message>
        <source>There is not enough memory</source>
        <translation>Der Speicher reicht nicht aus</translation>
    </message>
    <message>
        <source>Veskel %1 is available.</source>
        <translation>Veskel %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>This is version %1.</source>
        <translation>Dies ist Version %1.</translation>
    </message>
    <message>
        <source>Veskel %1 is the newest version.</source>
        <translation>Veskel %1 ist die neueste Version.</translation>
    </message>
    <message>
        <source>Veskel %1 is the newest version for this system.</source>
        <translation>Veskel %1 ist die neueste Version für dieses System.</translation>
    </message>
    <message>
        <source>Version %1 needs Linux %2 or later, and this is Linux %3.</source>
        <translation>Version %1 benötigt Linux %2 oder neuer, und dies ist Linux %3.</translation>
    </message>
    <message>
        <source>Veskel %1 is newer than what is offered.</source>
        <translation>Veskel %1 ist neuer als das Angebotene.</translation>
    </message>
    <message>
        <source>The newest version offered is %1.</source>
        <translation>Die neueste angebotene Version ist %1.</translation>
    </message>
    <message>
        <source>The list of versions could not be reached.</source>
        <translation>Die Liste der Versionen war nicht zu erreichen.</translation>
    </message>
    <message>
        <source>The list of versions could not be read.</source>
        <translation>Die Liste der Versionen konnte nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>The last action could not be done: %1</source>
        <translation>Die letzte Aktion konnte nicht ausgeführt werden: %1</translation>
    </message>
    <message>
        <source>Your home directory is not known: set the environment variable HOME.</source>
        <translation>Ihr persönlicher Ordner ist nicht bekannt: Setzen Sie die Umgebungsvariable HOME.</translation>
    </message>
    <message>
        <source>The data folder %1 cannot be used: %2</source>
        <translation>Der Datenordner %1 ist nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>&amp;Copy Address</source>
        <translation>&amp;Adresse kopieren</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>Im &amp;Browser öffnen</translation>
    </message>
    <message>
        <source>Newly broken</source>
        <translation>Neu defekt</translation>
    </message>
    <message>
        <source>Repaired</source>
        <translation>Repariert</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>New pages</source>
        <translation>Neue Seiten</translation>
    </message>
    <message>
        <source>Gone</source>
        <translation>Verschwunden</translation>
    </message>
    <message>
        <source>Gone pages</source>
        <translation>Verschwundene Seiten</translation>
    </message>
    <message>
        <source>Renamed</source>
        <translation>Umbenannt</translation>
    </message>
    <message>
        <source>Renamed pages</source>
        <translation>Umbenannte Seiten</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Text of the Link</source>
        <translation>Text des Links</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Broken</source>
        <translation>Defekt</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Ausgelassen</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Linked From</source>
        <translation>Verlinkt von</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>In the Sitemaps</source>
        <translation>In den Sitemaps</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Bytes</translation>
    </message>
    <message>
        <source>Milliseconds</source>
        <translation>Millisekunden</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Last Modified</source>
        <translation>Zuletzt geändert</translation>
    </message>
    <message>
        <source>Leads To</source>
        <translation>Führt zu</translation>
    </message>
    <message>
        <source>All pages</source>
        <translation>Alle Seiten</translation>
    </message>
    <message>
        <source>Titles that several pages share</source>
        <translation>Titel, die mehrere Seiten haben</translation>
    </message>
    <message>
        <source>Missing titles</source>
        <translation>Fehlende Titel</translation>
    </message>
    <message>
        <source>Slowest</source>
        <translation>Die langsamsten</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>Die größten</translation>
    </message>
    <message>
        <source>No page links to it</source>
        <translation>Keine Seite verweist darauf</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>All links</source>
        <translation>Alle Links</translation>
    </message>
    <message>
        <source>Moved</source>
        <translation>Umgezogen</translation>
    </message>
    <message>
        <source>Could not be checked</source>
        <translation>Nicht prüfbar</translation>
    </message>
    <message>
        <source>Certificate ends soon</source>
        <translation>Zertifikat läuft bald ab</translation>
    </message>
    <message>
        <source>Not asked yet</source>
        <translation>Noch nicht abgefragt</translation>
    </message>
    <message>
        <source>Images, styles and scripts</source>
        <translation>Bilder, Stile und Skripte</translation>
    </message>
    <message>
        <source>Pages May Be Missing</source>
        <translation>Seiten können fehlen</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Example</source>
        <translation>Beispiel</translation>
    </message>
    <message>
        <source>Stands On</source>
        <translation>Steht auf</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>All changes</source>
        <translation>Alle Änderungen</translation>
    </message>
</context>
<context>
    <name>ScanView</name>
    <message>
        <source>Search sites</source>
        <translation>Websites durchsuchen</translation>
    </message>
    <message>
        <source>Sites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>Hinzu&amp;fügen...</translation>
    </message>
    <message>
        <source>Add a website</source>
        <translation>Eine Website hinzufügen</translation>
    </message>
    <message>
        <source>Add Site</source>
        <translation>Website hinzufügen</translation>
    </message>
    <message>
        <source>Ed&amp;it...</source>
        <translation>Bea&amp;rbeiten...</translation>
    </message>
    <message>
        <source>Change the name or the address of the selected site</source>
        <translation>Name oder Adresse der ausgewählten Website ändern</translation>
    </message>
    <message>
        <source>Edit Site</source>
        <translation>Website bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Delete...</source>
        <translation>&amp;Löschen...</translation>
    </message>
    <message>
        <source>Delete the selected site with all that was written for it</source>
        <translation>Die ausgewählte Website mit allem löschen, was für sie geschrieben wurde</translation>
    </message>
    <message>
        <source>Delete Site</source>
        <translation>Website löschen</translation>
    </message>
    <message>
        <source>Add a website to build its sitemap</source>
        <translation>Fügen Sie eine Website hinzu, um ihre Sitemap zu erstellen</translation>
    </message>
    <message>
        <source>Add a &amp;Website...</source>
        <translation>&amp;Website hinzufügen...</translation>
    </message>
    <message>
        <source>Add a Website</source>
        <translation>Eine Website hinzufügen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the address</source>
        <translation>Die Adresse kopieren</translation>
    </message>
    <message>
        <source>Copy Address</source>
        <translation>Adresse kopieren</translation>
    </message>
    <message>
        <source>Ignore &amp;robots.txt</source>
        <translation>robots.txt &amp;ignorieren</translation>
    </message>
    <message>
        <source>Also visit what the site asks robots to leave alone</source>
        <translation>Auch besuchen, was Robots nach dem Wunsch der Website in Ruhe lassen sollen</translation>
    </message>
    <message>
        <source>Fil&amp;ters</source>
        <translation>Fil&amp;ter</translation>
    </message>
    <message>
        <source>Show the texts that keep links out of the sitemaps</source>
        <translation>Die Texte anzeigen, die Links aus den Sitemaps fernhalten</translation>
    </message>
    <message>
        <source>Sca&amp;n Site</source>
        <translation>Website d&amp;urchsuchen</translation>
    </message>
    <message>
        <source>Build the sitemaps of this site anew</source>
        <translation>Die Sitemaps dieser Website neu erstellen</translation>
    </message>
    <message>
        <source>Pages found</source>
        <translation>Gefundene Seiten</translation>
    </message>
    <message>
        <source>Pages used</source>
        <translation>Verwendete Seiten</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Broken</source>
        <translation>Defekt</translation>
    </message>
    <message>
        <source>Sh&amp;ow</source>
        <translation>An&amp;zeigen</translation>
    </message>
    <message>
        <source>Show Broken Links</source>
        <translation>Defekte Links anzeigen</translation>
    </message>
    <message>
        <source>Show the broken pages of the last scan</source>
        <translation>Die defekten Seiten des letzten Suchlaufs anzeigen</translation>
    </message>
    <message>
        <source>Notice of the last scan</source>
        <translation>Hinweis zum letzten Suchlauf</translation>
    </message>
    <message>
        <source>Follow Links as &amp;Browsers Do</source>
        <translation>Links wie Br&amp;owser verfolgen</translation>
    </message>
    <message>
        <source>Follow Links as Browsers Do</source>
        <translation>Links wie Browser verfolgen</translation>
    </message>
    <message>
        <source>Find every page that a browser reaches, from the next scan on</source>
        <translation>Ab dem nächsten Suchlauf jede Seite finden, die ein Browser erreicht</translation>
    </message>
    <message>
        <source>&amp;Links of the last scan</source>
        <translation>Links des letzten Su&amp;chlaufs</translation>
    </message>
    <message>
        <source>Links of the last scan</source>
        <translation>Links des letzten Suchlaufs</translation>
    </message>
</context>
<context>
    <name>StyleView</name>
    <message>
        <source>Page titles</source>
        <translation>Seitentitel</translation>
    </message>
    <message>
        <source>Page links</source>
        <translation>Seitenlinks</translation>
    </message>
</context>
<context>
    <name>UploadView</name>
    <message>
        <source>To publish a sitemap, copy the exported files into the top folder of your website, so that they are found at http://www.example.com/sitemap.html and http://www.example.com/sitemap.xml.

Link to sitemap.html from your pages. To tell search engines where the XML sitemap is, add this line to robots.txt in the same folder, with the address of your own site:</source>
        <translation>Um eine Sitemap zu veröffentlichen, kopieren Sie die exportierten Dateien in den obersten Ordner Ihrer Website, sodass sie unter http://www.example.com/sitemap.html und http://www.example.com/sitemap.xml zu finden sind.

Verweisen Sie von Ihren Seiten auf sitemap.html. Damit Suchmaschinen wissen, wo die XML-Sitemap liegt, fügen Sie in robots.txt im selben Ordner diese Zeile ein, mit der Adresse Ihrer eigenen Website:</translation>
    </message>
    <message>
        <source>Sitemap: http://www.example.com/sitemap.xml</source>
        <translation>Sitemap: http://www.example.com/sitemap.xml</translation>
    </message>
    <message>
        <source>Line for robots.txt</source>
        <translation>Zeile für robots.txt</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy Line</source>
        <translation>Zeile kopieren</translation>
    </message>
</context>
<context>
    <name>XmlView</name>
    <message>
        <source>S&amp;can Site</source>
        <translation>Website d&amp;urchsuchen</translation>
    </message>
    <message>
        <source>Scan Site</source>
        <translation>Website durchsuchen</translation>
    </message>
    <message>
        <source>&amp;Open Site Folder</source>
        <translation>Website-&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>Open Site Folder</source>
        <translation>Website-Ordner öffnen</translation>
    </message>
    <message>
        <source>Search addresses</source>
        <translation>Adressen durchsuchen</translation>
    </message>
    <message>
        <source>Entries of the XML sitemap</source>
        <translation>Einträge der XML-Sitemap</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Hide the findings</source>
        <translation>Die Befunde ausblenden</translation>
    </message>
    <message>
        <source>Hide Findings</source>
        <translation>Befunde ausblenden</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Befunde</translation>
    </message>
    <message>
        <source>Va&amp;lidate</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>Check the sitemap by the rules of search engines</source>
        <translation>Die Sitemap nach den Regeln der Suchmaschinen prüfen</translation>
    </message>
    <message>
        <source>Validate Sitemap</source>
        <translation>Sitemap prüfen</translation>
    </message>
    <message>
        <source>&amp;Delete Link...</source>
        <translation>&amp;Link löschen...</translation>
    </message>
    <message>
        <source>Delete Link</source>
        <translation>Link löschen</translation>
    </message>
</context>
<context>
    <name>app::MainWindow</name>
    <message>
        <source>Veskel Version %1</source>
        <translation>Veskel Version %1</translation>
    </message>
    <message>
        <source>How to build a sitemap</source>
        <translation>So entsteht eine Sitemap</translation>
    </message>
    <message>
        <source>1. Add a website: its name, and the address where it starts.
2. Select it in the list and press Scan Site. Veskel follows every link that stays inside the site.
3. Look at the broken pages, and add filters for what you want to leave out.
4. Export the sitemaps, and publish them as the Upload view tells.</source>
        <translation>1. Fügen Sie eine Website hinzu: ihren Namen und die Adresse, bei der sie beginnt.
2. Wählen Sie sie in der Liste aus, und klicken Sie auf „Website durchsuchen“. Veskel folgt jedem Link, der innerhalb der Website bleibt.
3. Sehen Sie sich die defekten Seiten an, und fügen Sie Filter für alles hinzu, was Sie auslassen möchten.
4. Exportieren Sie die Sitemaps, und veröffentlichen Sie sie, wie es die Ansicht Upload erklärt.</translation>
    </message>
    <message>
        <source>Builds sitemaps for websites.</source>
        <translation>Erstellt Sitemaps für Websites.</translation>
    </message>
</context>
<context>
    <name>crawler::FilterController</name>
    <message>
        <source>Could not read the filters: %1</source>
        <translation>Die Filter konnten nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Cannot Add Filter</source>
        <translation>Der Filter kann nicht hinzugefügt werden</translation>
    </message>
    <message>
        <source>There is nothing to add!</source>
        <translation>Es gibt nichts hinzuzufügen!</translation>
    </message>
    <message>
        <source>The filter could not be saved.</source>
        <translation>Der Filter konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>There is a filter for that already. The next scan leaves it out.</source>
        <translation>Dafür gibt es schon einen Filter. Der nächste Suchlauf lässt es aus.</translation>
    </message>
    <message>
        <source>Added the filter %1. The next scan leaves out what has that in its address.</source>
        <translation>Filter %1 hinzugefügt. Der nächste Suchlauf lässt aus, was das in seiner Adresse hat.</translation>
    </message>
    <message numerus="yes">
        <source>Added %Ln filters. The next scan leaves out what has one of them in its address.</source>
        <translation>
            <numerusform>%Ln Filter hinzugefügt. Der nächste Suchlauf lässt aus, was ihn in seiner Adresse hat.</numerusform>
            <numerusform>%Ln Filter hinzugefügt. Der nächste Suchlauf lässt aus, was einen davon in seiner Adresse hat.</numerusform>
        </translation>
    </message>
    <message>
        <source>The filters could not be saved.</source>
        <translation>Die Filter konnten nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>crawler::PasswordRow</name>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Remove the password</source>
        <translation>Das Passwort entfernen</translation>
    </message>
    <message>
        <source>Pass&amp;word</source>
        <translation>Pass&amp;wort</translation>
    </message>
    <message>
        <source>Kept in the desktop&apos;s secret service</source>
        <translation>Im Passwortdienst der Arbeitsumgebung hinterlegt</translation>
    </message>
    <message>
        <source>Kept until the program ends only, as %1</source>
        <translation>Nur bis zum Programmende aufbewahrt: %1</translation>
    </message>
    <message>
        <source>will be removed</source>
        <translation>wird entfernt</translation>
    </message>
    <message>
        <source>set; stays as it is when this is left empty</source>
        <translation>gesetzt; bleibt unverändert, wenn dies leer ist</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>A password needs the name that it belongs to.</source>
        <translation>Ein Passwort braucht den Namen, zu dem es gehört.</translation>
    </message>
    <message>
        <source>Password: %1.</source>
        <translation>Passwort: %1.</translation>
    </message>
</context>
<context>
    <name>crawler::ProgressSheet</name>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Scanning</source>
        <translation>Suchlauf</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Pages left</source>
        <translation>Verbleibende Seiten</translation>
    </message>
    <message>
        <source>Pages scanned</source>
        <translation>Durchsuchte Seiten</translation>
    </message>
    <message>
        <source>Broken links</source>
        <translation>Defekte Links</translation>
    </message>
    <message>
        <source>Links found</source>
        <translation>Gefundene Links</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
</context>
<context>
    <name>crawler::ScanController</name>
    <message>
        <source>Finishing the sitemaps...</source>
        <translation>Sitemaps werden fertiggestellt...</translation>
    </message>
    <message>
        <source>Connecting to %1</source>
        <translation>Verbindung zu %1 wird hergestellt</translation>
    </message>
    <message>
        <source>The last scan of this site was stopped. Continue Scan goes on with it.</source>
        <translation>Der letzte Suchlauf dieser Website wurde angehalten. „Suchlauf fortsetzen“ führt ihn weiter.</translation>
    </message>
    <message>
        <source>A scan is running.</source>
        <translation>Ein Suchlauf ist im Gang.</translation>
    </message>
    <message>
        <source>What was found until now is kept.</source>
        <translation>Was bis jetzt gefunden wurde, bleibt erhalten.</translation>
    </message>
    <message>
        <source>Stop and Quit</source>
        <translation>Anhalten und beenden</translation>
    </message>
    <message>
        <source>Keep Scanning</source>
        <translation>Weiter durchsuchen</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortfahren</translation>
    </message>
    <message>
        <source>Cancel Scan</source>
        <translation>Suchlauf abbrechen</translation>
    </message>
    <message>
        <source>
The filter &quot;%1&quot; keeps such addresses out.</source>
        <translation>
Der Filter „%1“ hält solche Adressen fern.</translation>
    </message>
    <message>
        <source>Continue Scan goes on where this scan stopped.</source>
        <translation>„Suchlauf fortsetzen“ macht dort weiter, wo dieser Suchlauf angehalten wurde.</translation>
    </message>
    <message>
        <source>Scanned &quot;%1&quot;</source>
        <translation>„%1“ durchsucht</translation>
    </message>
    <message>
        <source>Stopped the scan of &quot;%1&quot;</source>
        <translation>Suchlauf von „%1“ angehalten</translation>
    </message>
    <message>
        <source>The scan of &quot;%1&quot; was stopped: the site does not answer any more</source>
        <translation>Der Suchlauf von „%1“ wurde angehalten: Die Website antwortet nicht mehr</translation>
    </message>
    <message>
        <source>%1 of %2 pages found were scanned. Once the site answers again, Continue Scan goes on from there.</source>
        <translation>%1 von %2 gefundenen Seiten wurden durchsucht. Sobald die Website wieder antwortet, macht „Suchlauf fortsetzen“ dort weiter.</translation>
    </message>
    <message>
        <source>The scan of &quot;%1&quot; failed</source>
        <translation>Der Suchlauf von „%1“ ist gescheitert</translation>
    </message>
    <message>
        <source>The scan of &quot;%1&quot; failed after %2 of %3 pages found.</source>
        <translation>Der Suchlauf von „%1“ ist nach %2 von %3 gefundenen Seiten gescheitert.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be reached</source>
        <translation>„%1“ war nicht zu erreichen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may not be scanned</source>
        <translation>„%1“ darf nicht durchsucht werden</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>The site &quot;%1&quot; is being scanned already.</source>
        <translation>Die Website „%1“ wird bereits durchsucht.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be scanned</source>
        <translation>„%1“ konnte nicht durchsucht werden</translation>
    </message>
    <message>
        <source>Not everything could be written.</source>
        <translation>Nicht alles konnte geschrieben werden.</translation>
    </message>
    <message>
        <source>. The reasons of the broken pages could not be kept: %1</source>
        <translation>. Die Gründe der defekten Seiten konnten nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>. What was left out could not be kept: %1</source>
        <translation>. Was ausgelassen wurde, konnte nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>. The report could not be kept: %1</source>
        <translation>. Der Bericht konnte nicht aufbewahrt werden: %1</translation>
    </message>
    <message>
        <source>. %1</source>
        <translation>. %1</translation>
    </message>
    <message>
        <source>. It cannot be continued, as its pages could not be kept: %1</source>
        <translation>. Er kann nicht fortgesetzt werden, da seine Seiten nicht aufbewahrt werden konnten: %1</translation>
    </message>
    <message numerus="yes">
        <source>. %Ln edited value(s) were taken over</source>
        <translation>
            <numerusform>. %Ln bearbeiteter Wert wurde übernommen</numerusform>
            <numerusform>. %Ln bearbeitete Werte wurden übernommen</numerusform>
        </translation>
    </message>
    <message>
        <source>The edited sitemaps of before are kept. Restore Previous Sitemaps puts them back.</source>
        <translation>Die zuvor bearbeiteten Sitemaps sind aufbewahrt. „Vorherige Sitemaps wiederherstellen“ holt sie zurück.</translation>
    </message>
</context>
<context>
    <name>crawler::ScanNotice</name>
    <message>
        <source>Pages may be behind links that were left out.</source>
        <translation>Hinter ausgelassenen Links können Seiten liegen.</translation>
    </message>
    <message>
        <source>From the next scan on, links are followed as browsers do.</source>
        <translation>Ab dem nächsten Suchlauf werden Links wie von Browsern verfolgt.</translation>
    </message>
    <message>
        <source>The settings could not be saved.</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Links of &quot;%1&quot; are followed as browsers do from the next scan on</source>
        <translation>Links von „%1“ werden ab dem nächsten Suchlauf wie von Browsern verfolgt</translation>
    </message>
</context>
<context>
    <name>crawler::ScanSettingsController</name>
    <message>
        <source>The settings cannot be saved like this.</source>
        <translation>So können die Einstellungen nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>The settings could not be saved.</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Saved the scan settings of &quot;%1&quot;</source>
        <translation>Suchlauf-Einstellungen von „%1“ gespeichert</translation>
    </message>
    <message>
        <source>The password is forgotten until the program ends only: %1</source>
        <translation>Das Passwort ist nur bis zum Programmende vergessen: %1</translation>
    </message>
    <message>
        <source>The password is kept until the program ends only: %1</source>
        <translation>Das Passwort wird nur bis zum Programmende aufbewahrt: %1</translation>
    </message>
</context>
<context>
    <name>crawler::ScanSettingsSheet</name>
    <message>
        <source>Scan Settings</source>
        <translation>Suchlauf-Einstellungen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
</context>
<context>
    <name>crawler::WaitingSheet</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>html_editor::HTMLViewController</name>
    <message>
        <source>Everything is saved</source>
        <translation>Alles ist gespeichert</translation>
    </message>
    <message>
        <source>There is no sitemap to work on</source>
        <translation>Es gibt keine Sitemap zum Bearbeiten</translation>
    </message>
    <message>
        <source>Sitemap</source>
        <translation>Sitemap</translation>
    </message>
    <message>
        <source>The last scan of this site did not finish: not all of its pages are here.</source>
        <translation>Der letzte Suchlauf dieser Website wurde nicht beendet: Nicht alle ihre Seiten sind hier.</translation>
    </message>
    <message>
        <source>&amp;Page titles</source>
        <translation>Se&amp;itentitel</translation>
    </message>
    <message>
        <source>Page &amp;links</source>
        <translation>Seite&amp;nlinks</translation>
    </message>
    <message>
        <source>&amp;Copy Address</source>
        <translation>&amp;Adresse kopieren</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>Im &amp;Browser öffnen</translation>
    </message>
    <message>
        <source>&amp;Delete Link...</source>
        <translation>&amp;Link löschen...</translation>
    </message>
    <message>
        <source>Click a link in the sitemap first</source>
        <translation>Klicken Sie zuerst auf einen Link in der Sitemap</translation>
    </message>
    <message>
        <source>Remove this link from the layout that is shown</source>
        <translation>Diesen Link aus dem angezeigten Layout entfernen</translation>
    </message>
    <message>
        <source>Nothing was changed: the link is not in this layout as it was clicked.</source>
        <translation>Nichts wurde geändert: Der Link steht nicht so in diesem Layout, wie er angeklickt wurde.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Delete This Link</source>
        <translation>Diesen Link löschen</translation>
    </message>
    <message>
        <source>Changes have been made to this sitemap, would you like to save the changes you have made before deleting this link?</source>
        <translation>An dieser Sitemap wurden Änderungen vorgenommen. Möchten Sie Ihre Änderungen speichern, bevor Sie diesen Link löschen?</translation>
    </message>
    <message>
        <source>Once you have deleted a link it cannot be restored without re-scanning the site.</source>
        <translation>Ein gelöschter Link kann nur wiederhergestellt werden, indem die Website noch einmal durchsucht wird.</translation>
    </message>
    <message>
        <source>Save Changes</source>
        <translation>Änderungen speichern</translation>
    </message>
    <message>
        <source>Cancel Deletion</source>
        <translation>Löschen abbrechen</translation>
    </message>
    <message>
        <source>Discard Changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>Are you absolutely sure you want to remove this link from your sitemap, deleted links cannot be restored.</source>
        <translation>Möchten Sie diesen Link wirklich aus Ihrer Sitemap entfernen? Gelöschte Links können nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>This could take a while for large sites.</source>
        <translation>Bei großen Websites kann das eine Weile dauern.</translation>
    </message>
    <message>
        <source>Delete Link</source>
        <translation>Link löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Nothing was removed: the link could not be told apart in this layout.</source>
        <translation>Nichts wurde entfernt: Der Link war in diesem Layout nicht eindeutig.</translation>
    </message>
    <message>
        <source>Are you sure you want to save the changes you have made?</source>
        <translation>Möchten Sie Ihre Änderungen wirklich speichern?</translation>
    </message>
    <message>
        <source>Changes have been made to this sitemap, would you like to save the changes you have made?</source>
        <translation>An dieser Sitemap wurden Änderungen vorgenommen. Möchten Sie Ihre Änderungen speichern?</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Your changes are still here, and not saved.</source>
        <translation>Ihre Änderungen sind noch da und nicht gespeichert.</translation>
    </message>
    <message>
        <source>The sitemap is shown as it was last saved. Your changes are kept.</source>
        <translation>Die Sitemap wird gezeigt, wie sie zuletzt gespeichert wurde. Ihre Änderungen sind aufbewahrt.</translation>
    </message>
    <message>
        <source>Restore Changes</source>
        <translation>Änderungen wiederherstellen</translation>
    </message>
    <message>
        <source>Changes have been made to the look of this sitemap, would you like to save these changes?</source>
        <translation>Am Aussehen dieser Sitemap wurden Änderungen vorgenommen. Möchten Sie diese Änderungen speichern?</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Changes have been made to this sitemap, would you like to save before proceeding?</source>
        <translation>An dieser Sitemap wurden Änderungen vorgenommen. Möchten Sie speichern, bevor Sie fortfahren?</translation>
    </message>
    <message>
        <source>This sitemap holds text that a browser may run as a program.</source>
        <translation>Diese Sitemap enthält Text, den ein Browser als Programm ausführen könnte.</translation>
    </message>
    <message>
        <source>Veskel only shows it; a browser may run it.</source>
        <translation>Veskel zeigt ihn nur an; ein Browser könnte ihn ausführen.</translation>
    </message>
    <message>
        <source>View in Browser</source>
        <translation>Im Browser ansehen</translation>
    </message>
    <message>
        <source>Could not write the copy for the browser: %1</source>
        <translation>Die Kopie für den Browser konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>No program was found to open %1</source>
        <translation>Zum Öffnen von %1 wurde kein Programm gefunden</translation>
    </message>
    <message>
        <source>Changes to this sitemap were not saved.</source>
        <translation>Änderungen an dieser Sitemap wurden nicht gespeichert.</translation>
    </message>
    <message>
        <source>They were kept when Veskel ended, or could not write the file.</source>
        <translation>Sie wurden aufbewahrt, als Veskel endete oder die Datei nicht schreiben konnte.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>store::AddEditDeleteSitesController</name>
    <message>
        <source>Site name</source>
        <translation>Name der Website</translation>
    </message>
    <message>
        <source>Site URL</source>
        <translation>URL der Website</translation>
    </message>
    <message>
        <source>Site &amp;name</source>
        <translation>&amp;Name der Website</translation>
    </message>
    <message>
        <source>Site &amp;URL</source>
        <translation>&amp;URL der Website</translation>
    </message>
    <message>
        <source>Add New Site</source>
        <translation>Neue Website hinzufügen</translation>
    </message>
    <message>
        <source>Add Site</source>
        <translation>Website hinzufügen</translation>
    </message>
    <message>
        <source>Could not read %1</source>
        <translation>%1 konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Edit Site</source>
        <translation>Website bearbeiten</translation>
    </message>
    <message>
        <source>Save Changes</source>
        <translation>Änderungen speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The following error has occurred while saving your site.</source>
        <translation>Beim Speichern Ihrer Website ist der folgende Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Could not write %1</source>
        <translation>%1 konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Added &quot;%1&quot;</source>
        <translation>„%1“ hinzugefügt</translation>
    </message>
    <message>
        <source>Could not save %1: %2</source>
        <translation>%1 konnte nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>Could not save %1</source>
        <translation>%1 konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>„%1“ gespeichert</translation>
    </message>
    <message>
        <source>Do you really want to delete the site:
%1</source>
        <translation>Möchten Sie diese Website wirklich löschen:
%1</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Could not delete %1</source>
        <translation>%1 konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Deleted &quot;%1&quot;</source>
        <translation>„%1“ gelöscht</translation>
    </message>
    <message>
        <source>The site &quot;%1&quot; is being scanned.</source>
        <translation>Die Website „%1“ wird gerade durchsucht.</translation>
    </message>
    <message>
        <source>%1. What is remembered of it could not follow: %2</source>
        <translation>%1. Was über sie gemerkt ist, konnte nicht folgen: %2</translation>
    </message>
</context>
<context>
    <name>ui::BrokenLinksController</name>
    <message>
        <source>&amp;Leave This Out</source>
        <translation>Aus&amp;lassen</translation>
    </message>
    <message>
        <source>Select a page first</source>
        <translation>Wählen Sie zuerst eine Seite aus</translation>
    </message>
    <message>
        <source>Add a filter that keeps this address out of later scans</source>
        <translation>Einen Filter hinzufügen, der diese Adresse von späteren Suchläufen fernhält</translation>
    </message>
    <message>
        <source>Select a site to see the broken pages of its last scan.</source>
        <translation>Wählen Sie eine Website aus, um die defekten Seiten ihres letzten Suchlaufs zu sehen.</translation>
    </message>
    <message>
        <source>No broken pages are known.</source>
        <translation>Es sind keine defekten Seiten bekannt.</translation>
    </message>
    <message>
        <source>Broken &amp;pages of the last scan</source>
        <translation>Defekte Seiten des letzten Suchla&amp;ufs</translation>
    </message>
    <message>
        <source>No broken page has this in its address or reason.</source>
        <translation>Keine defekte Seite hat das in Adresse oder Grund.</translation>
    </message>
    <message>
        <source>Pages that lin&amp;k to the selected address</source>
        <translation>Seiten, die auf die ausgewählte Adresse &amp;verweisen</translation>
    </message>
    <message>
        <source>The first %1 of %2 pages that lin&amp;k to the selected address</source>
        <translation>Die ersten %1 von %2 Seiten, die auf die ausgewählte Adresse &amp;verweisen</translation>
    </message>
    <message>
        <source>With the pages that link to each address</source>
        <translation>Mit den Seiten, die auf jede Adresse verweisen</translation>
    </message>
    <message>
        <source>There is no report of the last scan</source>
        <translation>Es gibt keinen Bericht des letzten Suchlaufs</translation>
    </message>
    <message>
        <source>Reading the report...</source>
        <translation>Bericht wird gelesen...</translation>
    </message>
    <message>
        <source>Select a page to see which pages link to it.</source>
        <translation>Wählen Sie eine Seite aus, um zu sehen, welche Seiten auf sie verweisen.</translation>
    </message>
    <message>
        <source>The report of the last scan does not have this address.</source>
        <translation>Der Bericht des letzten Suchlaufs enthält diese Adresse nicht.</translation>
    </message>
    <message>
        <source>Reading the links...</source>
        <translation>Links werden gelesen...</translation>
    </message>
    <message>
        <source>No page links to it: it was named by the site&apos;s own sitemaps, or is its start page.</source>
        <translation>Keine Seite verweist darauf: Sie wurde von den eigenen Sitemaps der Website genannt oder ist die Startseite.</translation>
    </message>
</context>
<context>
    <name>ui::BrokenLinksModel</name>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
</context>
<context>
    <name>ui::ExportController</name>
    <message>
        <source>sitemap-1.xml, sitemap-2.xml and so on, and sitemap-index.xml that names them</source>
        <translation>sitemap-1.xml, sitemap-2.xml und so weiter, und sitemap-index.xml, die sie nennt</translation>
    </message>
    <message>
        <source>For sites of more than 50,000 pages</source>
        <translation>Für Websites mit mehr als 50.000 Seiten</translation>
    </message>
    <message>
        <source>Export Broken Links</source>
        <translation>Defekte Links exportieren</translation>
    </message>
    <message>
        <source>Web page (*.html)</source>
        <translation>Webseite (*.html)</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Text (*.txt)</translation>
    </message>
    <message>
        <source>This sitemap holds text that a browser may run as a program.</source>
        <translation>Diese Sitemap enthält Text, den ein Browser als Programm ausführen könnte.</translation>
    </message>
    <message>
        <source>Veskel only shows it; where you publish the sitemap a browser may run it.</source>
        <translation>Veskel zeigt ihn nur an; wo Sie die Sitemap veröffentlichen, könnte ein Browser ihn ausführen.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The site is being scanned.</source>
        <translation>Die Website wird gerade durchsucht.</translation>
    </message>
    <message>
        <source>Export it when the scan has finished.</source>
        <translation>Exportieren Sie sie, wenn der Suchlauf beendet ist.</translation>
    </message>
    <message>
        <source>If this problem persists, please contact support.</source>
        <translation>Wenn das Problem bestehen bleibt, wenden Sie sich bitte an den Support.</translation>
    </message>
    <message>
        <source>Export HTML Sitemap</source>
        <translation>HTML-Sitemap exportieren</translation>
    </message>
    <message>
        <source>Web page (*.html *.php *.asp *.htm)</source>
        <translation>Webseite (*.html *.php *.asp *.htm)</translation>
    </message>
    <message>
        <source>Export XML Sitemap</source>
        <translation>XML-Sitemap exportieren</translation>
    </message>
    <message>
        <source>XML sitemap (*.xml)</source>
        <translation>XML-Sitemap (*.xml)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>The file could not be saved.</source>
        <translation>Die Datei konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Save Folder</source>
        <translation>Speicherordner</translation>
    </message>
    <message>
        <source>Set Save Folder</source>
        <translation>Speicherordner festlegen</translation>
    </message>
</context>
<context>
    <name>ui::ExportSheet</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Preparing the sitemap...</source>
        <translation>Sitemap wird vorbereitet...</translation>
    </message>
</context>
<context>
    <name>ui::LinkCheckController</name>
    <message>
        <source>Stopped checking the outside links of &quot;%1&quot;: %2 of %3 were asked</source>
        <translation>Prüfung der externen Links von „%1“ angehalten: %2 von %3 wurden abgefragt</translation>
    </message>
    <message>
        <source>Checked the outside links of &quot;%1&quot;: %2 of %3 are broken</source>
        <translation>Externe Links von „%1“ geprüft: %2 von %3 sind defekt</translation>
    </message>
    <message>
        <source>Select a site first</source>
        <translation>Wählen Sie zuerst eine Website aus</translation>
    </message>
    <message>
        <source>A site is being scanned</source>
        <translation>Eine Website wird gerade durchsucht</translation>
    </message>
    <message>
        <source>The links of &quot;%1&quot; are being checked</source>
        <translation>Die Links von „%1“ werden gerade geprüft</translation>
    </message>
</context>
<context>
    <name>ui::LinkCheckPanel</name>
    <message>
        <source> The pages link to so many addresses that only the first %1 are known.</source>
        <translation> Die Seiten verweisen auf so viele Adressen, dass nur die ersten %1 bekannt sind.</translation>
    </message>
    <message>
        <source>Beginning...</source>
        <translation>Beginnt...</translation>
    </message>
    <message>
        <source>Looking for images, styles and scripts: %1 of %2 pages read</source>
        <translation>Bilder, Stile und Skripte werden gesucht: %1 von %2 Seiten gelesen</translation>
    </message>
    <message>
        <source>%1 of %2 asked, %3 left, %4 broken</source>
        <translation>%1 von %2 abgefragt, %3 verbleiben, %4 defekt</translation>
    </message>
    <message>
        <source>Check Outside L&amp;inks...</source>
        <translation>Externe L&amp;inks prüfen...</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>Anha&amp;lten</translation>
    </message>
    <message>
        <source>Progress of the check</source>
        <translation>Fortschritt der Prüfung</translation>
    </message>
    <message>
        <source>Scan the site first: no complete scan of it is kept</source>
        <translation>Durchsuchen Sie die Website zuerst: Kein vollständiger Suchlauf ist aufbewahrt</translation>
    </message>
    <message>
        <source>The check is being stopped</source>
        <translation>Die Prüfung wird gerade angehalten</translation>
    </message>
    <message>
        <source>The links cannot be checked.</source>
        <translation>Die Links können nicht geprüft werden.</translation>
    </message>
    <message>
        <source>Stopping...</source>
        <translation>Wird angehalten...</translation>
    </message>
    <message>
        <source>The links of &quot;%1&quot;: %2</source>
        <translation>Die Links von „%1“: %2</translation>
    </message>
    <message>
        <source>Waiting for %1</source>
        <translation>Warten auf %1</translation>
    </message>
    <message>
        <source>The links could not be checked.</source>
        <translation>Die Links konnten nicht geprüft werden.</translation>
    </message>
</context>
<context>
    <name>ui::LinkCheckSheet</name>
    <message numerus="yes">
        <source>%Ln address(es)</source>
        <translation>
            <numerusform>%Ln Adresse</numerusform>
            <numerusform>%Ln Adressen</numerusform>
        </translation>
    </message>
    <message>
        <source>The last check was stopped after %1. &quot;%2&quot; links to %3 outside of it: each is asked once, and each host at most once a second.</source>
        <translation>Die letzte Prüfung wurde nach %1 angehalten. „%2“ verweist nach außen auf %3: Jede wird einmal abgefragt, und jeder Host höchstens einmal in der Sekunde.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; links to no web address outside of it.</source>
        <translation>„%1“ verweist auf keine externe Webadresse.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; links to %2 outside of it: each is asked once whether it is still there, and each host at most once a second.</source>
        <translation>„%1“ verweist nach außen auf %2: Jede wird einmal abgefragt, ob sie noch da ist, und jeder Host höchstens einmal in der Sekunde.</translation>
    </message>
    <message>
        <source>Also check the &amp;images, styles and scripts of its pages</source>
        <translation>Auch die &amp;Bilder, Stile und Skripte ihrer Seiten prüfen</translation>
    </message>
    <message>
        <source>&amp;Go On</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
    <message>
        <source>Check Outside Links</source>
        <translation>Externe Links prüfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>To find them, %Ln page(s) of the site are read once more.</source>
        <translation>
            <numerusform>Um sie zu finden, wird %Ln Seite der Website noch einmal gelesen.</numerusform>
            <numerusform>Um sie zu finden, werden %Ln Seiten der Website noch einmal gelesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Begin Anew</source>
        <translation>&amp;Neu beginnen</translation>
    </message>
    <message>
        <source>&amp;Check</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>There is nothing to ask</source>
        <translation>Es gibt nichts abzufragen</translation>
    </message>
</context>
<context>
    <name>ui::LinkingExport</name>
    <message>
        <source>Export Broken Links</source>
        <translation>Defekte Links exportieren</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Table (*.csv)</source>
        <translation>Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>The file could not be saved.</source>
        <translation>Die Datei konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>ui::MainViewControl</name>
    <message>
        <source>No Sites Have Been Scanned</source>
        <translation>Keine Website wurde durchsucht</translation>
    </message>
    <message>
        <source>You need to select a sitemap from the sites list to use the HTML sitemap viewer.</source>
        <translation>Sie müssen eine Sitemap in der Liste der Websites auswählen, um die HTML-Sitemap anzusehen.</translation>
    </message>
    <message>
        <source>You need to select a sitemap from the sites list to use the XML sitemap viewer.</source>
        <translation>Sie müssen eine Sitemap in der Liste der Websites auswählen, um die XML-Sitemap anzusehen.</translation>
    </message>
    <message>
        <source>Scan a site first</source>
        <translation>Durchsuchen Sie zuerst eine Website</translation>
    </message>
</context>
<context>
    <name>ui::ReportOverview</name>
    <message>
        <source>%1 pages   %2 broken   %3 links   scanned in %4</source>
        <translation>%1 Seiten   %2 defekt   %3 Links   durchsucht in %4</translation>
    </message>
    <message>
        <source>less than a second</source>
        <translation>weniger als einer Sekunde</translation>
    </message>
    <message>
        <source>The scan of %1.</source>
        <translation>Der Suchlauf vom %1.</translation>
    </message>
    <message>
        <source> The one of %1 did not come to its end.</source>
        <translation> Der vom %1 kam nicht zu seinem Ende.</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Übersicht</translation>
    </message>
</context>
<context>
    <name>ui::ReportTab</name>
    <message>
        <source>Sho&amp;w</source>
        <translation>An&amp;zeigen</translation>
    </message>
    <message>
        <source>Nothing was found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Show in &amp;Pages</source>
        <translation>Unter &amp;Seiten anzeigen</translation>
    </message>
    <message>
        <source>Colu&amp;mns</source>
        <translation>S&amp;palten</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>ui::ReportWindow</name>
    <message>
        <source>No page links to it.</source>
        <translation>Keine Seite verweist darauf.</translation>
    </message>
    <message>
        <source>%1 pages link to it, of which the first %2:</source>
        <translation>%1 Seiten verweisen darauf, davon die ersten %2:</translation>
    </message>
    <message numerus="yes">
        <source>%Ln page(s) link to it:</source>
        <translation>
            <numerusform>%Ln Seite verweist darauf:</numerusform>
            <numerusform>%Ln Seiten verweisen darauf:</numerusform>
        </translation>
    </message>
    <message>
        <source>Broken pages</source>
        <translation>Defekte Seiten</translation>
    </message>
    <message>
        <source>Pages that link there</source>
        <translation>Seiten, die dorthin verweisen</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Reasons</source>
        <translation>Gründe</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Outside links</source>
        <translation>Externe Links</translation>
    </message>
    <message>
        <source>Scan Report</source>
        <translation>Bericht des Suchlaufs</translation>
    </message>
    <message>
        <source>&amp;Overview</source>
        <translation>Ü&amp;bersicht</translation>
    </message>
    <message>
        <source>&amp;Broken</source>
        <translation>&amp;Defekt</translation>
    </message>
    <message>
        <source>&amp;Changes</source>
        <translation>Änderun&amp;gen</translation>
    </message>
    <message>
        <source>The last scan did not meet it</source>
        <translation>Der letzte Suchlauf hat sie nicht angetroffen</translation>
    </message>
    <message>
        <source>&amp;Left Out</source>
        <translation>&amp;Ausgelassen</translation>
    </message>
    <message>
        <source>&amp;Pages</source>
        <translation>S&amp;eiten</translation>
    </message>
    <message>
        <source>Outside Lin&amp;ks</source>
        <translation>Externe Lin&amp;ks</translation>
    </message>
    <message>
        <source>(image, style or script)</source>
        <translation>(Bild, Stil oder Skript)</translation>
    </message>
    <message>
        <source>The first page that needs it</source>
        <translation>Die erste Seite, die es braucht</translation>
    </message>
    <message>
        <source>Report of %1</source>
        <translation>Bericht von %1</translation>
    </message>
    <message>
        <source>Select a site to see the report of its last scan.</source>
        <translation>Wählen Sie eine Website aus, um den Bericht ihres letzten Suchlaufs zu sehen.</translation>
    </message>
    <message>
        <source>Reading the report...</source>
        <translation>Bericht wird gelesen...</translation>
    </message>
    <message>
        <source>There is no report of this site yet. Its next complete scan makes one.</source>
        <translation>Von dieser Website gibt es noch keinen Bericht. Ihr nächster vollständiger Suchlauf erstellt einen.</translation>
    </message>
    <message>
        <source>No page is broken.</source>
        <translation>Keine Seite ist defekt.</translation>
    </message>
    <message>
        <source>The scan has met no page.</source>
        <translation>Der Suchlauf hat keine Seite angetroffen.</translation>
    </message>
    <message>
        <source>No page links out of the site.</source>
        <translation>Keine Seite verweist aus der Website hinaus.</translation>
    </message>
    <message>
        <source>Nothing was left out.</source>
        <translation>Nichts wurde ausgelassen.</translation>
    </message>
    <message>
        <source>Select a reason to see examples.</source>
        <translation>Wählen Sie einen Grund aus, um Beispiele zu sehen.</translation>
    </message>
    <message>
        <source>There is no complete scan before this one to compare with.</source>
        <translation>Vor diesem gibt es keinen vollständigen Suchlauf zum Vergleichen.</translation>
    </message>
    <message>
        <source>Comparing the scans...</source>
        <translation>Suchläufe werden verglichen...</translation>
    </message>
    <message>
        <source>Nothing has changed since the scan before.</source>
        <translation>Seit dem vorigen Suchlauf hat sich nichts geändert.</translation>
    </message>
    <message>
        <source>Select a row to see which pages link there.</source>
        <translation>Wählen Sie eine Zeile aus, um zu sehen, welche Seiten dorthin verweisen.</translation>
    </message>
    <message>
        <source>Reading the links...</source>
        <translation>Links werden gelesen...</translation>
    </message>
    <message>
        <source>There is no such page.</source>
        <translation>Es gibt keine solche Seite.</translation>
    </message>
    <message>
        <source>No page has this in its address or title.</source>
        <translation>Keine Seite hat das in Adresse oder Titel.</translation>
    </message>
</context>
<context>
    <name>ui::RestoreController</name>
    <message>
        <source>Do you really want to restore the previous sitemaps of &quot;%1&quot;?</source>
        <translation>Möchten Sie die vorherigen Sitemaps von „%1“ wirklich wiederherstellen?</translation>
    </message>
    <message>
        <source>Those that are there now are kept in their place, so that restoring once more brings them back.</source>
        <translation>Die jetzigen werden an ihrer Stelle aufbewahrt, sodass nochmaliges Wiederherstellen sie zurückbringt.</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The site &quot;%1&quot; is being scanned.</source>
        <translation>Die Website „%1“ wird gerade durchsucht.</translation>
    </message>
    <message>
        <source>There are no previous sitemaps of &quot;%1&quot;.</source>
        <translation>Von „%1“ gibt es keine vorherigen Sitemaps.</translation>
    </message>
    <message>
        <source>The sitemaps could not be restored.</source>
        <translation>Die Sitemaps konnten nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Restored the previous sitemaps of &quot;%1&quot;</source>
        <translation>Vorherige Sitemaps von „%1“ wiederhergestellt</translation>
    </message>
</context>
<context>
    <name>ui::ScanViewController</name>
    <message numerus="yes">
        <source> (and %Ln more)</source>
        <translation>
            <numerusform> (und %Ln weiteres)</numerusform>
            <numerusform> (und %Ln weitere)</numerusform>
        </translation>
    </message>
    <message>
        <source>No site has this in its name.</source>
        <translation>Keine Website hat das in ihrem Namen.</translation>
    </message>
    <message>
        <source>Select a site first</source>
        <translation>Wählen Sie zuerst eine Website aus</translation>
    </message>
    <message>
        <source>Select a site to see what is known of it.</source>
        <translation>Wählen Sie eine Website aus, um zu sehen, was über sie bekannt ist.</translation>
    </message>
    <message>
        <source>Could not use %1: %2</source>
        <translation>%1 ist nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>The record of this site cannot be read</source>
        <translation>Der Datensatz dieser Website kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>The record of this site cannot be read.</source>
        <translation>Der Datensatz dieser Website kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This site was not scanned yet. Press Scan Site to build its sitemaps.</source>
        <translation>Diese Website wurde noch nicht durchsucht. Klicken Sie auf „Website durchsuchen“, um ihre Sitemaps zu erstellen.</translation>
    </message>
    <message>
        <source>The links are listed here while the site is scanned, and its pages afterwards.</source>
        <translation>Hier erscheinen die Links, während die Website durchsucht wird, und danach ihre Seiten.</translation>
    </message>
    <message>
        <source>The robots switch could not be saved.</source>
        <translation>Der Schalter für robots.txt konnte nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>ui::SiteTableModel</name>
    <message>
        <source>Site</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Broken</source>
        <translation>Defekt</translation>
    </message>
    <message>
        <source>Last scan</source>
        <translation>Zuletzt</translation>
    </message>
</context>
<context>
    <name>ui::SplitExport</name>
    <message>
        <source>The site has no address.</source>
        <translation>Die Website hat keine Adresse.</translation>
    </message>
    <message>
        <source>The index of a split sitemap needs it.</source>
        <translation>Der Index einer aufgeteilten Sitemap braucht sie.</translation>
    </message>
    <message>
        <source>Export Sitemaps To</source>
        <translation>Sitemaps exportieren nach</translation>
    </message>
    <message>
        <source>Export Here</source>
        <translation>Hierhin exportieren</translation>
    </message>
    <message numerus="yes">
        <source>Saved %Ln file(s) in %1</source>
        <translation>
            <numerusform>%Ln Datei in %1 gespeichert</numerusform>
            <numerusform>%Ln Dateien in %1 gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>The sitemap holds no pages.</source>
        <translation>Die Sitemap enthält keine Seiten.</translation>
    </message>
    <message>
        <source>The folder holds an earlier export.</source>
        <translation>Der Ordner enthält einen früheren Export.</translation>
    </message>
    <message>
        <source>%1 and the other files of this export would be replaced.</source>
        <translation>%1 und die anderen Dateien dieses Exports würden ersetzt.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The sitemap could not be saved.</source>
        <translation>Die Sitemap konnte nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>ui::UpdateController</name>
    <message>
        <source>Checking for updates...</source>
        <translation>Suche nach Updates...</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>Stopping...</source>
        <translation>Wird angehalten...</translation>
    </message>
    <message>
        <source>The check for updates was stopped</source>
        <translation>Die Suche nach Updates wurde angehalten</translation>
    </message>
</context>
<context>
    <name>ui::UpdateSheet</name>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Versionshinweise</translation>
    </message>
    <message>
        <source>The release notes at %1 could not be read: %2.</source>
        <translation>Die Versionshinweise unter %1 konnten nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>&amp;What is new:</source>
        <translation>&amp;Neu in dieser Version:</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Open &amp;Download Page</source>
        <translation>&amp;Download-Seite öffnen</translation>
    </message>
</context>
<context>
    <name>xml_editor::FindingsPanel</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Checking the sitemap...</source>
        <translation>Sitemap wird geprüft...</translation>
    </message>
    <message>
        <source>The sitemap cannot be read: %1</source>
        <translation>Die Sitemap kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The sitemap is valid.</source>
        <translation>Die Sitemap ist gültig.</translation>
    </message>
    <message numerus="yes">
        <source>The sitemap has %Ln fault(s). Click one to see its entry:</source>
        <translation>
            <numerusform>Die Sitemap hat %Ln Fehler. Klicken Sie ihn an, um seinen Eintrag zu sehen:</numerusform>
            <numerusform>Die Sitemap hat %Ln Fehler. Klicken Sie einen an, um seinen Eintrag zu sehen:</numerusform>
        </translation>
    </message>
    <message>
        <source>The sitemap has %1 faults. These are the first %2; click one to see its entry:</source>
        <translation>Die Sitemap hat %1 Fehler. Das sind die ersten %2; klicken Sie einen an, um seinen Eintrag zu sehen:</translation>
    </message>
</context>
<context>
    <name>xml_editor::XMLViewController</name>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Select a site to see its XML sitemap.</source>
        <translation>Wählen Sie eine Website aus, um ihre XML-Sitemap zu sehen.</translation>
    </message>
    <message>
        <source>%1 has no XML sitemap yet. A scan writes it.</source>
        <translation>%1 hat noch keine XML-Sitemap. Ein Suchlauf schreibt sie.</translation>
    </message>
    <message>
        <source>The XML sitemap of %1 cannot be read: %2</source>
        <translation>Die XML-Sitemap von %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The XML sitemap of %1 has no entries.</source>
        <translation>Die XML-Sitemap von %1 hat keine Einträge.</translation>
    </message>
    <message>
        <source>This sitemap holds elements that Veskel does not edit. The first change drops them.</source>
        <translation>Diese Sitemap enthält Elemente, die Veskel nicht bearbeitet. Die erste Änderung lässt sie weg.</translation>
    </message>
    <message>
        <source>S&amp;can Site</source>
        <translation>Website d&amp;urchsuchen</translation>
    </message>
    <message>
        <source>Si&amp;tes</source>
        <translation>&amp;Websites</translation>
    </message>
    <message>
        <source>Scan Site</source>
        <translation>Website durchsuchen</translation>
    </message>
    <message>
        <source>Sites</source>
        <translation>Websites</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entry(s)</source>
        <translation>
            <numerusform>%Ln Eintrag</numerusform>
            <numerusform>%Ln Einträge</numerusform>
        </translation>
    </message>
    <message>
        <source>Not found in %1</source>
        <translation>Nicht gefunden in %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Delete the selected entry</source>
        <translation>Den ausgewählten Eintrag löschen</translation>
    </message>
    <message>
        <source>Select an entry first</source>
        <translation>Wählen Sie zuerst einen Eintrag aus</translation>
    </message>
    <message>
        <source>Do you really want to delete the selected link?
Deleting links cannot be undone!</source>
        <translation>Möchten Sie den ausgewählten Link wirklich löschen?
Das Löschen von Links kann nicht rückgängig gemacht werden!</translation>
    </message>
    <message>
        <source>Delete Link</source>
        <translation>Link löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The previous sitemap cannot be read.</source>
        <translation>Die vorherige Sitemap kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>No edited values of the previous sitemap are missing in this one</source>
        <translation>In dieser Sitemap fehlen keine bearbeiteten Werte der vorherigen</translation>
    </message>
    <message numerus="yes">
        <source>Took over %Ln edited value(s) of the previous sitemap</source>
        <translation>
            <numerusform>%Ln bearbeiteten Wert der vorherigen Sitemap übernommen</numerusform>
            <numerusform>%Ln bearbeitete Werte der vorherigen Sitemap übernommen</numerusform>
        </translation>
    </message>
    <message>
        <source>Show It Anew</source>
        <translation>Neu anzeigen</translation>
    </message>
</context>
<context>
    <name>xml_editor::XmlTableModel</name>
    <message>
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message>
        <source>Last Updated</source>
        <translation>Zuletzt geändert</translation>
    </message>
    <message>
        <source>Change Frequency</source>
        <translation>Änderungshäufigkeit</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>Priorität</translation>
    </message>
</context>
</TS>
