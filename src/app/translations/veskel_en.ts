<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Phrases</name>
    <message numerus="yes">
        <source>%n page</source>
        <comment>%n pages</comment>
        <translation>
            <numerusform>%Ln page</numerusform>
            <numerusform>%Ln pages</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n link</source>
        <comment>%n links</comment>
        <translation>
            <numerusform>%Ln link</numerusform>
            <numerusform>%Ln links</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n</source>
        <comment>%n</comment>
        <translation>
            <numerusform>%Ln</numerusform>
            <numerusform>%Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more for another reason</source>
        <comment> and %n more for another reason</comment>
        <translation>
            <numerusform> and %Ln more for another reason</numerusform>
            <numerusform> and %Ln more for another reason</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more for other reasons</source>
        <comment> and %n more for other reasons</comment>
        <translation>
            <numerusform> and %Ln more for other reasons</numerusform>
            <numerusform> and %Ln more for other reasons</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Waiting: the server asks for patience, %n second</source>
        <comment>Waiting: the server asks for patience, %n seconds</comment>
        <translation>
            <numerusform>Waiting: the server asks for patience, %Ln second</numerusform>
            <numerusform>Waiting: the server asks for patience, %Ln seconds</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>It lies outside of the site: %Ln page links to it, and sitemaps name pages of the site only.</source>
        <comment>It lies outside of the site: %Ln pages link to it, and sitemaps name pages of the site only.</comment>
        <translation>
            <numerusform>It lies outside of the site: %Ln page links to it, and sitemaps name pages of the site only.</numerusform>
            <numerusform>It lies outside of the site: %Ln pages link to it, and sitemaps name pages of the site only.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln page new</source>
        <comment>%Ln pages new</comment>
        <translation>
            <numerusform>%Ln page new</numerusform>
            <numerusform>%Ln pages new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> %Ln link was not asked yet.</source>
        <comment> %Ln links were not asked yet.</comment>
        <translation>
            <numerusform> %Ln link was not asked yet.</numerusform>
            <numerusform> %Ln links were not asked yet.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> %Ln link was met since then.</source>
        <comment> %Ln links were met since then.</comment>
        <translation>
            <numerusform> %Ln link was met since then.</numerusform>
            <numerusform> %Ln links were met since then.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>crawler::FilterController</name>
    <message numerus="yes">
        <source>Added %Ln filters. The next scan leaves out what has one of them in its address.</source>
        <translation>
            <numerusform>Added %Ln filter. The next scan leaves out what has it in its address.</numerusform>
            <numerusform>Added %Ln filters. The next scan leaves out what has one of them in its address.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>crawler::ScanController</name>
    <message numerus="yes">
        <source>. %Ln edited value(s) were taken over</source>
        <translation>
            <numerusform>. %Ln edited value was taken over</numerusform>
            <numerusform>. %Ln edited values were taken over</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ui::LinkCheckSheet</name>
    <message numerus="yes">
        <source>%Ln address(es)</source>
        <translation>
            <numerusform>%Ln address</numerusform>
            <numerusform>%Ln addresses</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>To find them, %Ln page(s) of the site are read once more.</source>
        <translation>
            <numerusform>To find them, %Ln page of the site is read once more.</numerusform>
            <numerusform>To find them, %Ln pages of the site are read once more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ui::ReportWindow</name>
    <message numerus="yes">
        <source>%Ln page(s) link to it:</source>
        <translation>
            <numerusform>%Ln page links to it:</numerusform>
            <numerusform>%Ln pages link to it:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ui::ScanViewController</name>
    <message numerus="yes">
        <source> (and %Ln more)</source>
        <translation>
            <numerusform> (and %Ln more)</numerusform>
            <numerusform> (and %Ln more)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ui::SplitExport</name>
    <message numerus="yes">
        <source>Saved %Ln file(s) in %1</source>
        <translation>
            <numerusform>Saved %Ln file in %1</numerusform>
            <numerusform>Saved %Ln files in %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>xml_editor::FindingsPanel</name>
    <message numerus="yes">
        <source>The sitemap has %Ln fault(s). Click one to see its entry:</source>
        <translation>
            <numerusform>The sitemap has one fault. Click it to see its entry:</numerusform>
            <numerusform>The sitemap has %Ln faults. Click one to see its entry:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>xml_editor::XMLViewController</name>
    <message numerus="yes">
        <source>%Ln entry(s)</source>
        <translation>
            <numerusform>%Ln entry</numerusform>
            <numerusform>%Ln entries</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Took over %Ln edited value(s) of the previous sitemap</source>
        <translation>
            <numerusform>Took over %Ln edited value of the previous sitemap</numerusform>
            <numerusform>Took over %Ln edited values of the previous sitemap</numerusform>
        </translation>
    </message>
</context>
</TS>
