<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>Kestrio</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Restore %n unsaved pictures?</source>
        <translation>
            <numerusform>Restore %n unsaved picture?</numerusform>
            <numerusform>Restore %n unsaved pictures?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Save the changes to %n pictures before quitting?</source>
        <translation>
            <numerusform>Save the changes to %n picture before quitting?</numerusform>
            <numerusform>Save the changes to %n pictures before quitting?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln frames, %1 px</source>
        <translation>
            <numerusform>%Ln frame, %1 px</numerusform>
            <numerusform>%Ln frames, %1 px</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redacted %n sensitive items</source>
        <translation>
            <numerusform>Redacted %n sensitive item</numerusform>
            <numerusform>Redacted %n sensitive items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n blocks of text</source>
        <translation>
            <numerusform>Found %n block of text</numerusform>
            <numerusform>Found %n blocks of text</numerusform>
        </translation>
    </message>
</context>
</TS>
