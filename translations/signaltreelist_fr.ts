<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>SignalTreeList</name>
    <message>
        <source>Edit</source>
        <comment>button of a row: edit the signal or group</comment>
        <translation>Modifier</translation>
    </message>
    <message>
        <source>Delete</source>
        <comment>button of a row: delete the signal or group</comment>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Show signals</source>
        <comment>check box of a group row: show or hide its signals</comment>
        <translation>Afficher les signaux</translation>
    </message>
    <message>
        <source>Capture</source>
        <comment>button of a signal row: capture a picture of the signal</comment>
        <translation>Capturer</translation>
    </message>
    <message>
        <source>offline</source>
        <comment>a signal that is not available</comment>
        <translation>hors ligne</translation>
    </message>
    <message>
        <source>Expand</source>
        <comment>accessible action: show a group&apos;s signals</comment>
        <translation>Déplier</translation>
    </message>
    <message>
        <source>Collapse</source>
        <comment>accessible action: hide a group&apos;s signals</comment>
        <translation>Replier</translation>
    </message>
    <message>
        <source>Input signals</source>
        <comment>accessible name of the list</comment>
        <translation>Signaux d’entrée</translation>
    </message>
    <message>
        <source>Press</source>
        <comment>accessible action: select the row, as a click does</comment>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>Selects the row, as a click does</source>
        <comment>accessible action description: press</comment>
        <translation>Sélectionne la ligne, comme un clic</translation>
    </message>
    <message>
        <source>Shows the signals of this group</source>
        <comment>accessible action description: expand</comment>
        <translation>Affiche les signaux de ce groupe</translation>
    </message>
    <message>
        <source>Hides the signals of this group</source>
        <comment>accessible action description: collapse</comment>
        <translation>Masque les signaux de ce groupe</translation>
    </message>
    <message>
        <source>Asks the application to edit this row, as its edit button does</source>
        <comment>accessible action description: edit</comment>
        <translation>Demande à l’application de modifier cette ligne, comme son bouton « Modifier »</translation>
    </message>
    <message>
        <source>Asks the application to delete this row, as its delete button does</source>
        <comment>accessible action description: delete</comment>
        <translation>Demande à l’application de supprimer cette ligne, comme son bouton « Supprimer »</translation>
    </message>
    <message>
        <source>More</source>
        <comment>fourth button of a signal row, whose meaning the application gives</comment>
        <translation>Plus</translation>
    </message>
</context>
</TS>
