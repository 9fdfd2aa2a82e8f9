<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>SignalTreeList</name>
    <message>
        <source>Edit</source>
        <comment>button of a row: edit the signal or group</comment>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Delete</source>
        <comment>button of a row: delete the signal or group</comment>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Show signals</source>
        <comment>check box of a group row: show or hide its signals</comment>
        <translation>Signale anzeigen</translation>
    </message>
    <message>
        <source>Capture</source>
        <comment>button of a signal row: capture a picture of the signal</comment>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>offline</source>
        <comment>a signal that is not available</comment>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>Expand</source>
        <comment>accessible action: show a group&apos;s signals</comment>
        <translation>Aufklappen</translation>
    </message>
    <message>
        <source>Collapse</source>
        <comment>accessible action: hide a group&apos;s signals</comment>
        <translation>Zuklappen</translation>
    </message>
    <message>
        <source>Input signals</source>
        <comment>accessible name of the list</comment>
        <translation>Eingangssignale</translation>
    </message>
    <message>
        <source>Press</source>
        <comment>accessible action: select the row, as a click does</comment>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Selects the row, as a click does</source>
        <comment>accessible action description: press</comment>
        <translation>Wählt die Zeile aus, wie ein Klick</translation>
    </message>
    <message>
        <source>Shows the signals of this group</source>
        <comment>accessible action description: expand</comment>
        <translation>Zeigt die Signale dieser Gruppe</translation>
    </message>
    <message>
        <source>Hides the signals of this group</source>
        <comment>accessible action description: collapse</comment>
        <translation>Verbirgt die Signale dieser Gruppe</translation>
    </message>
    <message>
        <source>Asks the application to edit this row, as its edit button does</source>
        <comment>accessible action description: edit</comment>
        <translation>Bittet die Anwendung, diese Zeile zu bearbeiten, wie ihre Schaltfläche „Bearbeiten“</translation>
    </message>
    <message>
        <source>Asks the application to delete this row, as its delete button does</source>
        <comment>accessible action description: delete</comment>
        <translation>Bittet die Anwendung, diese Zeile zu löschen, wie ihre Schaltfläche „Löschen“</translation>
    </message>
    <message>
        <source>More</source>
        <comment>fourth button of a signal row, whose meaning the application gives</comment>
        <translation>Mehr</translation>
    </message>
</context>
</TS>
