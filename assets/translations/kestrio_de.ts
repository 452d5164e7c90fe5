<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>Kestrio</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Screenshots worth showing.</source>
        <translation>Bildschirmfotos, die sich sehen lassen können.</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>File names</source>
        <translation>Dateinamen</translation>
    </message>
    <message>
        <source>Screen recording</source>
        <translation>Bildschirmaufnahme</translation>
    </message>
    <message>
        <source>Kestrio can capture the screen.</source>
        <translation>Kestrio kann den Bildschirm aufnehmen.</translation>
    </message>
    <message>
        <source>Kestrio cannot capture the screen.</source>
        <translation>Kestrio kann den Bildschirm nicht aufnehmen.</translation>
    </message>
    <message>
        <source>Check Again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Your pictures</source>
        <translation>Ihre Bilder</translation>
    </message>
    <message>
        <source>Everything is captured, edited and saved on this computer. Kestrio sends no pictures anywhere.</source>
        <translation>Alles wird auf diesem Rechner aufgenommen, bearbeitet und gespeichert. Kestrio sendet keine Bilder.</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>Speicherort</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Selecting a region</source>
        <translation>Bereich auswählen</translation>
    </message>
    <message>
        <source>Confirm before editing</source>
        <translation>Vor dem Bearbeiten bestätigen</translation>
    </message>
    <message>
        <source>Adjust the selection, then edit, copy, save or pin it. Otherwise the editor opens at once.</source>
        <translation>Auswahl anpassen und dann bearbeiten, kopieren, speichern oder anheften. Sonst öffnet sich der Editor sofort.</translation>
    </message>
    <message>
        <source>Snap to windows</source>
        <translation>An Fenstern einrasten</translation>
    </message>
    <message>
        <source>Show the magnifier</source>
        <translation>Lupe anzeigen</translation>
    </message>
    <message>
        <source>After the capture</source>
        <translation>Nach der Aufnahme</translation>
    </message>
    <message>
        <source>Copy to the clipboard automatically</source>
        <translation>Automatisch in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Saved presets</source>
        <translation>Gespeicherte Vorlagen</translation>
    </message>
    <message>
        <source>Delete this preset</source>
        <translation>Diese Vorlage löschen</translation>
    </message>
    <message>
        <source>Restart Kestrio to change its language.</source>
        <translation>Starten Sie Kestrio neu, um die Sprache zu wechseln.</translation>
    </message>
    <message>
        <source>Kestrio Settings</source>
        <translation>Kestrio – Einstellungen</translation>
    </message>
    <message>
        <source>Press shortcut...</source>
        <translation>Tasten drücken …</translation>
    </message>
    <message>
        <source>Click a shortcut, then press a new key combination to change it. Must include at least ⌘, ⌃, or ⌥, but for Print, media and other keys that type nothing.</source>
        <translation>Klicken Sie auf ein Tastenkürzel und drücken Sie dann eine neue Kombination. Sie muss ⌘, ⌃ oder ⌥ enthalten, außer bei Druck, Medientasten und anderen Tasten, die nichts schreiben.</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>Globale Tastenkürzel</translation>
    </message>
    <message>
        <source>⌃ Control   ⌥ Alt   ⇧ Shift   ⌘ Super</source>
        <translation>⌃ Strg   ⌥ Alt   ⇧ Umschalt   ⌘ Super</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Bring to Front</source>
        <translation>In den Vordergrund</translation>
    </message>
    <message>
        <source>Send to Back</source>
        <translation>In den Hintergrund</translation>
    </message>
    <message>
        <source>Renumber from here</source>
        <translation>Ab hier neu nummerieren</translation>
    </message>
    <message>
        <source>Delete and Renumber</source>
        <translation>Löschen und neu nummerieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Hide annotations</source>
        <translation>Anmerkungen ausblenden</translation>
    </message>
    <message>
        <source>Show annotations</source>
        <translation>Anmerkungen einblenden</translation>
    </message>
    <message>
        <source>Bring to front</source>
        <translation>In den Vordergrund</translation>
    </message>
    <message>
        <source>Send to back</source>
        <translation>In den Hintergrund</translation>
    </message>
    <message>
        <source>Delete selected</source>
        <translation>Ausgewählte löschen</translation>
    </message>
    <message>
        <source>Any other colour</source>
        <translation>Andere Farbe</translation>
    </message>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Canvas shape</source>
        <translation>Form der Leinwand</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Use this ratio</source>
        <translation>Dieses Verhältnis verwenden</translation>
    </message>
    <message>
        <source>Padding</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Keep screenshot pixels</source>
        <translation>Pixel beibehalten</translation>
    </message>
    <message>
        <source>The canvas grows by padding and frame, and the screenshot stays sharp</source>
        <translation>Die Leinwand wächst um Abstand und Rahmen, und das Bildschirmfoto bleibt scharf</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Saving failed</source>
        <translation>Speichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>Save the changes?</source>
        <translation>Änderungen speichern?</translation>
    </message>
    <message>
        <source>“%1” was changed since it last left the editor. Save writes it into the save folder.</source>
        <translation>„%1“ wurde geändert, seit es den Editor zuletzt verlassen hat. „Speichern“ legt es im Speicherordner ab.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Go on editing</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner wählen …</translation>
    </message>
    <message>
        <source>Save into another folder</source>
        <translation>In einem anderen Ordner speichern</translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation>Speichern …</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save and close</source>
        <translation>Speichern und schließen</translation>
    </message>
    <message>
        <source>Pick from the picture</source>
        <translation>Aus dem Bild aufnehmen</translation>
    </message>
    <message>
        <source>Pick a colour; with Alt for the backdrop</source>
        <translation>Farbe aufnehmen; mit Alt für den Hintergrund</translation>
    </message>
    <message>
        <source>Copy this text</source>
        <translation>Diesen Text kopieren</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt verwendet</translation>
    </message>
    <message>
        <source>Use for the backdrop</source>
        <translation>Für den Hintergrund</translation>
    </message>
    <message>
        <source>Use for the tools</source>
        <translation>Für die Werkzeuge</translation>
    </message>
    <message>
        <source>Drag handles   Return Apply   Esc Cancel</source>
        <translation>Griffe ziehen   Eingabe: Anwenden   Esc: Abbrechen</translation>
    </message>
    <message>
        <source>Ratio Locked</source>
        <translation>Verhältnis fest</translation>
    </message>
    <message>
        <source>Free Ratio</source>
        <translation>Verhältnis frei</translation>
    </message>
    <message>
        <source>The whole picture again</source>
        <translation>Wieder das ganze Bild</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Drag the finished picture into another program</source>
        <translation>Das fertige Bild in ein anderes Programm ziehen</translation>
    </message>
    <message>
        <source>Kestrio Editor – %1</source>
        <translation>Kestrio – %1</translation>
    </message>
    <message>
        <source>The window closes as soon as the picture is written</source>
        <translation>Das Fenster schließt sich, sobald das Bild geschrieben ist</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>Enhance the picture</source>
        <translation>Bild verbessern</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message>
        <source>Denoise</source>
        <translation>Entrauschen</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Upscale</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Restore original</source>
        <translation>Original wiederherstellen</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>In Arbeit …</translation>
    </message>
    <message>
        <source>Enhance</source>
        <translation>Verbessern</translation>
    </message>
    <message>
        <source>Export Options</source>
        <translation>Exportoptionen</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Exporting image...</source>
        <translation>Bild wird exportiert …</translation>
    </message>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
    <message>
        <source>Export Successful!</source>
        <translation>Export erfolgreich!</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Export Failed</source>
        <translation>Export fehlgeschlagen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Title bar size</source>
        <translation>Größe der Titelleiste</translation>
    </message>
    <message>
        <source>Your own</source>
        <translation>Eigener</translation>
    </message>
    <message>
        <source>Remove the last colour</source>
        <translation>Letzte Farbe entfernen</translation>
    </message>
    <message>
        <source>Make a gradient of your own</source>
        <translation>Eigenen Verlauf anlegen</translation>
    </message>
    <message>
        <source>Add a colour</source>
        <translation>Farbe hinzufügen</translation>
    </message>
    <message>
        <source>Colour %1 of the gradient</source>
        <translation>Farbe %1 des Verlaufs</translation>
    </message>
    <message>
        <source>Blurred areas are hidden</source>
        <translation>Verdeckende Bereiche sind ausgeblendet</translation>
    </message>
    <message>
        <source>Annotations are hidden, so the picture would show what the blurred areas cover.</source>
        <translation>Die Anmerkungen sind ausgeblendet; das Bild würde zeigen, was die weichgezeichneten Bereiche verdecken.</translation>
    </message>
    <message>
        <source>Continue without</source>
        <translation>Ohne sie fortfahren</translation>
    </message>
    <message>
        <source>Show and continue</source>
        <translation>Einblenden und fortfahren</translation>
    </message>
    <message>
        <source>Another picture…</source>
        <translation>Anderes Bild …</translation>
    </message>
    <message>
        <source>Choose picture…</source>
        <translation>Bild auswählen …</translation>
    </message>
    <message>
        <source>Or drop a picture here</source>
        <translation>Oder ein Bild hier ablegen</translation>
    </message>
    <message>
        <source>Blur of the picture</source>
        <translation>Bild weichzeichnen</translation>
    </message>
    <message>
        <source>Opacity of the picture</source>
        <translation>Deckkraft des Bildes</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Corner radius</source>
        <translation>Eckenradius</translation>
    </message>
    <message>
        <source>Corner radius (set by the frame)</source>
        <translation>Eckenradius (vom Rahmen)</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Schlagschatten</translation>
    </message>
    <message>
        <source>Light from</source>
        <translation>Licht von</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Überlagerung</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Strichstärke</translation>
    </message>
    <message>
        <source>Colour of the pattern</source>
        <translation>Farbe des Musters</translation>
    </message>
    <message>
        <source>Start over?</source>
        <translation>Von vorn beginnen?</translation>
    </message>
    <message>
        <source>Annotations, style and all steps of undo go. The picture stays as it is now.</source>
        <translation>Anmerkungen, Stil und alle rückgängig zu machenden Schritte gehen verloren. Das Bild bleibt, wie es jetzt ist.</translation>
    </message>
    <message>
        <source>Start over</source>
        <translation>Von vorn beginnen</translation>
    </message>
    <message>
        <source>Backdrop</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Corners and shadow</source>
        <translation>Ecken und Schatten</translation>
    </message>
    <message>
        <source>Watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>E-mail…</source>
        <translation>E-Mail …</translation>
    </message>
    <message>
        <source>Copy File</source>
        <translation>Datei kopieren</translation>
    </message>
    <message>
        <source>Open with %1</source>
        <translation>Öffnen mit %1</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Close (Esc)</source>
        <translation>Schließen (Esc)</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>Leinwand</translation>
    </message>
    <message>
        <source>Delete this theme</source>
        <translation>Dieses Design löschen</translation>
    </message>
    <message>
        <source>Replace with the current style</source>
        <translation>Durch den aktuellen Stil ersetzen</translation>
    </message>
    <message>
        <source>Rename…</source>
        <translation>Umbenennen …</translation>
    </message>
    <message>
        <source>Rename theme</source>
        <translation>Design umbenennen</translation>
    </message>
    <message>
        <source>Enter theme name</source>
        <translation>Name des Designs eingeben</translation>
    </message>
    <message>
        <source>Save your current backdrop, frame, and mockup settings as a reusable theme.</source>
        <translation>Speichert den aktuellen Hintergrund, Rahmen, Ecken und Schatten als wiederverwendbares Design.</translation>
    </message>
    <message>
        <source>Name of the theme</source>
        <translation>Name des Designs</translation>
    </message>
    <message>
        <source>A theme with this name already exists</source>
        <translation>Ein Design mit diesem Namen existiert bereits</translation>
    </message>
    <message>
        <source>A theme with this name already exists and will be replaced</source>
        <translation>Ein Design mit diesem Namen existiert bereits und wird ersetzt</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Keep this style as a theme</source>
        <translation>Diesen Stil als Design speichern</translation>
    </message>
    <message>
        <source>Save style</source>
        <translation>Stil speichern</translation>
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
        <source>Start over…</source>
        <translation>Von vorn beginnen …</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Turn left</source>
        <translation>Nach links drehen</translation>
    </message>
    <message>
        <source>Turn right</source>
        <translation>Nach rechts drehen</translation>
    </message>
    <message>
        <source>Annotate</source>
        <translation>Anmerken</translation>
    </message>
    <message>
        <source>Draw on the picture</source>
        <translation>Auf das Bild zeichnen</translation>
    </message>
    <message>
        <source>Auto beautify</source>
        <translation>Automatisch verschönern</translation>
    </message>
    <message>
        <source>Marks hidden</source>
        <translation>Ausgeblendet</translation>
    </message>
    <message>
        <source>Annotations are hidden; click to show them</source>
        <translation>Anmerkungen sind ausgeblendet; klicken Sie, um sie einzublenden</translation>
    </message>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Hide the panel</source>
        <translation>Leiste ausblenden</translation>
    </message>
    <message>
        <source>Show the panel</source>
        <translation>Leiste einblenden</translation>
    </message>
    <message>
        <source>Pin to the desktop</source>
        <translation>Auf dem Desktop anheften</translation>
    </message>
    <message>
        <source>Share with another program</source>
        <translation>Mit einem anderen Programm teilen</translation>
    </message>
    <message>
        <source>Copying…</source>
        <translation>Kopieren …</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy to clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Save as a file</source>
        <translation>Als Datei speichern</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Horizontal offset</source>
        <translation>Waagerechter Versatz</translation>
    </message>
    <message>
        <source>Vertical offset</source>
        <translation>Senkrechter Versatz</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Name of a new preset</source>
        <translation>Name einer neuen Vorlage</translation>
    </message>
    <message>
        <source>Keep this watermark</source>
        <translation>Dieses Wasserzeichen speichern</translation>
    </message>
    <message>
        <source>Show a watermark</source>
        <translation>Wasserzeichen anzeigen</translation>
    </message>
    <message>
        <source>Text of the watermark</source>
        <translation>Text des Wasserzeichens</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Click to edit zoom percentage (10% - 500%)</source>
        <translation>Klicken, um den Zoom einzugeben (10 % – 500 %)</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Type hex digits or three numbers</source>
        <translation>Hex-Ziffern oder drei Zahlen eingeben</translation>
    </message>
    <message>
        <source>Hex digits of the colour</source>
        <translation>Hex-Ziffern der Farbe</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe wählen</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Distribute Horizontally</source>
        <translation>Waagerecht verteilen</translation>
    </message>
    <message>
        <source>Distribute Vertically</source>
        <translation>Senkrecht verteilen</translation>
    </message>
    <message>
        <source>Please enter a positive integer</source>
        <translation>Bitte eine positive ganze Zahl eingeben</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Select and move annotations</source>
        <translation>Anmerkungen auswählen und verschieben</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>Pfeil</translation>
    </message>
    <message>
        <source>Draw arrows to point at things</source>
        <translation>Mit Pfeilen auf etwas zeigen</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>Measure pixel distances</source>
        <translation>Abstände in Pixeln messen</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Draw rectangles and squares</source>
        <translation>Rechtecke und Quadrate zeichnen</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>Draw circles and ovals</source>
        <translation>Kreise und Ellipsen zeichnen</translation>
    </message>
    <message>
        <source>Add text annotations</source>
        <translation>Text hinzufügen</translation>
    </message>
    <message>
        <source>Add numbered markers</source>
        <translation>Nummern hinzufügen</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pinsel</translation>
    </message>
    <message>
        <source>Freehand drawing</source>
        <translation>Freihändig zeichnen</translation>
    </message>
    <message>
        <source>Highlighter</source>
        <translation>Textmarker</translation>
    </message>
    <message>
        <source>Highlight areas with transparency</source>
        <translation>Bereiche durchscheinend hervorheben</translation>
    </message>
    <message>
        <source>Blur sensitive information</source>
        <translation>Vertrauliches weichzeichnen</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Radierer</translation>
    </message>
    <message>
        <source>Erase annotations</source>
        <translation>Anmerkungen radieren</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>Sehr groß</translation>
    </message>
    <message>
        <source>Gaussian</source>
        <translation>Gauß</translation>
    </message>
    <message>
        <source>Pixelate</source>
        <translation>Verpixeln</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Einfarbig</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>Umriss</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>Füllen</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beides</translation>
    </message>
    <message>
        <source>another capture is under way</source>
        <translation>es läuft bereits eine andere Aufnahme</translation>
    </message>
    <message>
        <source>Copied to clipboard</source>
        <translation>In die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Capture Error</source>
        <translation>Aufnahmefehler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>The Screenshot Was Not Saved</source>
        <translation>Das Bildschirmfoto wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>%1
It is still here: choose another folder for it.</source>
        <translation>%1
Es ist noch da: Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Open in Editor</source>
        <translation>Im Editor öffnen</translation>
    </message>
    <message>
        <source>Save the Screenshot into Folder</source>
        <translation>Bildschirmfoto in Ordner speichern</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>wait so many seconds first</source>
        <translation>zuvor so viele Sekunden warten</translation>
    </message>
    <message>
        <source>open the picture in the editor</source>
        <translation>das Bild im Editor öffnen</translation>
    </message>
    <message>
        <source>put it on the clipboard</source>
        <translation>es in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>pin it to the desktop</source>
        <translation>es auf dem Desktop anheften</translation>
    </message>
    <message>
        <source>write it to the save folder of the settings and print its path</source>
        <translation>es in den Speicherordner der Einstellungen schreiben und den Pfad ausgeben</translation>
    </message>
    <message>
        <source>write it to this file, as PNG, JPEG or WebP by its ending</source>
        <translation>es in diese Datei schreiben, je nach Endung als PNG, JPEG oder WebP</translation>
    </message>
    <message>
        <source>show help</source>
        <translation>Hilfe anzeigen</translation>
    </message>
    <message>
        <source>--delay takes whole seconds from 0 to %1</source>
        <translation>--delay erwartet ganze Sekunden von 0 bis %1</translation>
    </message>
    <message>
        <source>open the editor on a picture</source>
        <translation>ein Bild im Editor öffnen</translation>
    </message>
    <message>
        <source>set pictures on a backdrop and write them as files</source>
        <translation>Bilder auf einen Hintergrund setzen und als Dateien schreiben</translation>
    </message>
    <message>
        <source>standard output cannot be written to</source>
        <translation>auf die Standardausgabe kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Kestrio, a screenshot beautifier

usage: kestrio                    start in the tray, or bring the running one to notice
       kestrio VERB [ARGUMENTS]

%1
  -h, --help     show this help; after a verb, its options
  -v, --version  show the version</source>
        <translation>Kestrio, ein Verschönerer für Bildschirmfotos

Aufruf: kestrio                      im Infobereich starten oder auf das laufende aufmerksam machen
        kestrio BEFEHL [ARGUMENTE]

%1
  -h, --help     diese Hilfe anzeigen; nach einem Befehl dessen Optionen
  -v, --version  die Version anzeigen</translation>
    </message>
    <message>
        <source>usage: kestrio %1</source>
        <translation>Aufruf: kestrio %1</translation>
    </message>
    <message>
        <source>unknown verb &quot;%1&quot;; known are %2</source>
        <translation>unbekannter Befehl „%1“; bekannt sind %2</translation>
    </message>
    <message>
        <source>Opens the editor on a picture.</source>
        <translation>Öffnet ein Bild im Editor.</translation>
    </message>
    <message>
        <source>a picture; the clipboard&apos;s unless given</source>
        <translation>ein Bild; ohne Angabe das der Zwischenablage</translation>
    </message>
    <message>
        <source>pixels per point of the picture, 1 unless given</source>
        <translation>Pixel je Punkt des Bildes, ohne Angabe 1</translation>
    </message>
    <message>
        <source>--density takes a number above 0 and at most %1</source>
        <translation>--density erwartet eine Zahl über 0 und höchstens %1</translation>
    </message>
    <message>
        <source>the editor opens one picture at a time</source>
        <translation>der Editor öffnet ein Bild auf einmal</translation>
    </message>
    <message>
        <source>hold-clipboard is for Kestrio itself, which starts it</source>
        <translation>hold-clipboard ist Kestrio selbst vorbehalten, das es startet</translation>
    </message>
    <message>
        <source>the running Kestrio does not answer; end it and try again</source>
        <translation>das laufende Kestrio antwortet nicht; beenden Sie es und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>Sets pictures on a backdrop and writes them as files.</source>
        <translation>Setzt Bilder auf einen Hintergrund und schreibt sie als Dateien.</translation>
    </message>
    <message>
        <source>a picture; several may be given</source>
        <translation>ein Bild; mehrere sind möglich</translation>
    </message>
    <message>
        <source>the file to write, or a folder</source>
        <translation>die zu schreibende Datei oder ein Ordner</translation>
    </message>
    <message>
        <source>write to the save folder of the settings instead</source>
        <translation>stattdessen in den Speicherordner der Einstellungen schreiben</translation>
    </message>
    <message>
        <source>png, jpeg or webp; inferred from the output&apos;s ending unless given</source>
        <translation>png, jpeg oder webp; ohne Angabe aus der Endung der Ausgabe abgeleitet</translation>
    </message>
    <message>
        <source>print what was written as JSON</source>
        <translation>als JSON ausgeben, was geschrieben wurde</translation>
    </message>
    <message>
        <source>unknown format &quot;%1&quot;; known are %2</source>
        <translation>unbekanntes Format „%1“; bekannt sind %2</translation>
    </message>
    <message>
        <source>give only one of -o and --quick-save</source>
        <translation>geben Sie nur eines von -o und --quick-save an</translation>
    </message>
    <message>
        <source>say where the result goes: -o OUTPUT or --quick-save</source>
        <translation>geben Sie an, wohin das Ergebnis soll: -o AUSGABE oder --quick-save</translation>
    </message>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>der Ordner %1 existiert nicht</translation>
    </message>
    <message>
        <source>cannot infer the format of &quot;%1&quot;; end it in .png, .jpeg or .webp, or give --format</source>
        <translation>aus „%1“ geht kein Format hervor; verwenden Sie die Endung .png, .jpeg oder .webp oder geben Sie --format an</translation>
    </message>
    <message>
        <source>%1 would be overwritten by its own result; name another output</source>
        <translation>%1 würde vom eigenen Ergebnis überschrieben; geben Sie eine andere Ausgabe an</translation>
    </message>
    <message>
        <source>name a picture to render</source>
        <translation>geben Sie ein Bild an</translation>
    </message>
    <message>
        <source>--quick-save takes one picture; name a folder for several</source>
        <translation>--quick-save nimmt ein einziges Bild; geben Sie für mehrere einen Ordner an</translation>
    </message>
    <message>
        <source>several pictures need a folder as their output; &quot;%1&quot; is not a folder</source>
        <translation>mehrere Bilder brauchen einen Ordner als Ziel; „%1“ ist keiner</translation>
    </message>
    <message>
        <source>--%1 takes a number, not &quot;%2&quot;</source>
        <translation>--%1 erwartet eine Zahl, nicht „%2“</translation>
    </message>
    <message>
        <source>unknown %1 &quot;%2&quot;; known are %3</source>
        <translation>unbekannter Wert für %1: „%2“; bekannt sind %3</translation>
    </message>
    <message>
        <source>--%1 takes two numbers above 0 as in %2, not &quot;%3&quot;</source>
        <translation>--%1 erwartet zwei Zahlen über 0 wie in %2, nicht „%3“</translation>
    </message>
    <message>
        <source>--%1 takes a number above 0, not &quot;%2&quot;</source>
        <translation>--%1 erwartet eine Zahl über 0, nicht „%2“</translation>
    </message>
    <message>
        <source>the style file %1 cannot be used: %2</source>
        <translation>die Stildatei %1 ist nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no colour; write it as #RRGGBB or #RRGGBBAA</source>
        <translation>„%1“ ist keine Farbe; schreiben Sie sie als #RRGGBB oder #RRGGBBAA</translation>
    </message>
    <message>
        <source>the annotations in %1 cannot be used: %2</source>
        <translation>die Anmerkungen in %1 sind nicht verwendbar: %2</translation>
    </message>
    <message>
        <source>start from a built-in style</source>
        <translation>von einem mitgelieferten Stil ausgehen</translation>
    </message>
    <message>
        <source>start from the JSON of an editor style</source>
        <translation>vom JSON eines Editorstils ausgehen</translation>
    </message>
    <message>
        <source>none, solid:#RRGGBB, gradient:ID or image:FILE</source>
        <translation>none, solid:#RRGGBB, gradient:ID oder image:FILE</translation>
    </message>
    <message>
        <source>points between canvas and picture, 0 to 100</source>
        <translation>Punkte zwischen Leinwand und Bild, 0 bis 100</translation>
    </message>
    <message>
        <source>none, macOS, safari, arc, windows, stack or stack2</source>
        <translation>none, macOS, safari, arc, windows, stack oder stack2</translation>
    </message>
    <message>
        <source>size of the frame&apos;s title bar, 1 is natural</source>
        <translation>Größe der Titelleiste des Rahmens, 1 ist natürlich</translation>
    </message>
    <message>
        <source>points, 4 and less is square</source>
        <translation>Punkte, bis 4 eckig</translation>
    </message>
    <message>
        <source>off, low, medium or high</source>
        <translation>off, low, medium oder high</translation>
    </message>
    <message>
        <source>where the light comes from, such as topLeft</source>
        <translation>woher das Licht kommt, etwa topLeft</translation>
    </message>
    <message>
        <source>circles, waves, dots, rays, grid, stripes, noise or none</source>
        <translation>circles, waves, dots, rays, grid, stripes, noise oder none</translation>
    </message>
    <message>
        <source>its colour, black at 10 percent unless given</source>
        <translation>seine Farbe, ohne Angabe Schwarz mit 10 Prozent</translation>
    </message>
    <message>
        <source>its strength, 0 to 1</source>
        <translation>seine Stärke, 0 bis 1</translation>
    </message>
    <message>
        <source>diagonalShadow, naturalShadow, softGlow, vignette or none</source>
        <translation>diagonalShadow, naturalShadow, softGlow, vignette oder none</translation>
    </message>
    <message>
        <source>its strength, 10 unless given</source>
        <translation>ihre Stärke, ohne Angabe 10</translation>
    </message>
    <message>
        <source>backdrop effects, such as dreamy or film</source>
        <translation>Effekte des Hintergrunds, etwa dreamy oder film</translation>
    </message>
    <message>
        <source>shape of the canvas around the picture</source>
        <translation>Form der Leinwand um das Bild</translation>
    </message>
    <message>
        <source>size of the canvas in points</source>
        <translation>Größe der Leinwand in Punkten</translation>
    </message>
    <message>
        <source>let the canvas grow so that the picture is not resampled</source>
        <translation>die Leinwand wachsen lassen, damit das Bild nicht umgerechnet wird</translation>
    </message>
    <message>
        <source>turn the finished picture clockwise</source>
        <translation>das fertige Bild im Uhrzeigersinn drehen</translation>
    </message>
    <message>
        <source>burn a text into the picture</source>
        <translation>einen Text in das Bild einbrennen</translation>
    </message>
    <message>
        <source>draw the annotations of a JSON list</source>
        <translation>die Anmerkungen einer JSON-Liste zeichnen</translation>
    </message>
    <message>
        <source>pixels per point of the input, 1 unless given</source>
        <translation>Pixel je Punkt der Eingabe, ohne Angabe 1</translation>
    </message>
    <message>
        <source>Conflicts with &quot;%1&quot;</source>
        <translation>Konflikt mit „%1“</translation>
    </message>
    <message>
        <source>Region Capture</source>
        <translation>Bereich aufnehmen</translation>
    </message>
    <message>
        <source>Window Capture</source>
        <translation>Fenster aufnehmen</translation>
    </message>
    <message>
        <source>Scrolling Capture</source>
        <translation>Rollende Aufnahme</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Videoaufnahme</translation>
    </message>
    <message>
        <source>the folder %1 must be a folder of yours that nobody else may enter; remove it, or set XDG_RUNTIME_DIR to another one</source>
        <translation>der Ordner %1 muss Ihnen gehören und darf für niemanden sonst zugänglich sein; löschen Sie ihn oder setzen Sie XDG_RUNTIME_DIR auf einen anderen</translation>
    </message>
    <message>
        <source>cancelled by the user</source>
        <translation>vom Benutzer abgebrochen</translation>
    </message>
    <message>
        <source>the option &quot;%1&quot; cannot be &quot;%2&quot;</source>
        <translation>die Option „%1“ kann nicht „%2“ sein</translation>
    </message>
    <message>
        <source>there is no capture &quot;%1&quot;</source>
        <translation>es gibt keine Aufnahme „%1“</translation>
    </message>
    <message>
        <source>the running Kestrio ended before it was done</source>
        <translation>das laufende Kestrio endete, bevor es fertig war</translation>
    </message>
    <message>
        <source>there is no picture on the clipboard; name a file to edit</source>
        <translation>in der Zwischenablage ist kein Bild; geben Sie eine Datei an</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>the running Kestrio does not understand the request (%1); it may be of another version, so quit it and start it again</source>
        <translation>das laufende Kestrio versteht die Anfrage nicht (%1); vielleicht ist es eine andere Version, beenden Sie es also und starten Sie es neu</translation>
    </message>
    <message>
        <source>a file name cannot contain a NUL character</source>
        <translation>ein Dateiname kann kein NUL-Zeichen enthalten</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an absolute path</source>
        <translation>„%1“ ist kein absoluter Pfad</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in .png, .jpg or .webp</source>
        <translation>„%1“ endet nicht auf .png, .jpg oder .webp</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder</source>
        <translation>„%1“ ist ein Ordner</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a device or a pipe, not a file</source>
        <translation>„%1“ ist ein Gerät oder eine Pipe, keine Datei</translation>
    </message>
    <message>
        <source>the folder of &quot;%1&quot; does not exist</source>
        <translation>der Ordner von „%1“ existiert nicht</translation>
    </message>
    <message>
        <source>the folder of &quot;%1&quot; cannot be written to</source>
        <translation>in den Ordner von „%1“ kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the density must be above 0 and at most %1</source>
        <translation>die Dichte muss über 0 liegen und darf höchstens %1 sein</translation>
    </message>
    <message>
        <source>the delay must be 0 to %1 seconds</source>
        <translation>die Verzögerung muss zwischen 0 und %1 Sekunden liegen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Bildschirmfotos</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Failed to set launch at login: %1</source>
        <translation>Der Start bei der Anmeldung konnte nicht eingestellt werden: %1</translation>
    </message>
    <message>
        <source>Select default save path</source>
        <translation>Speicherordner auswählen</translation>
    </message>
    <message>
        <source>Failed to delete preset: %1</source>
        <translation>Die Vorlage konnte nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>Kestrio captures in %1s</source>
        <translation>Kestrio nimmt in %1 s auf</translation>
    </message>
    <message>
        <source>Kestrio Runs Without an Icon</source>
        <translation>Kestrio läuft ohne Symbol</translation>
    </message>
    <message>
        <source>This desktop has no tray, so Kestrio shows no icon. Press %1 to capture a region, or start Kestrio again to open its preferences.</source>
        <translation>Dieser Desktop hat keinen Infobereich, daher zeigt Kestrio kein Symbol. Drücken Sie %1, um einen Bereich aufzunehmen, oder starten Sie Kestrio erneut, um die Einstellungen zu öffnen.</translation>
    </message>
    <message>
        <source>Open Preferences</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Kestrio is running. Press %1 to capture a region.</source>
        <translation>Kestrio läuft. Drücken Sie %1, um einen Bereich aufzunehmen.</translation>
    </message>
    <message>
        <source>Esc cancels</source>
        <translation>Esc bricht ab</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Restore the unsaved picture?</source>
        <translation>Nicht gespeichertes Bild wiederherstellen?</translation>
    </message>
    <message numerus="yes">
        <source>Restore %n unsaved pictures?</source>
        <translation>
            <numerusform>%n nicht gespeichertes Bild wiederherstellen?</numerusform>
            <numerusform>%n nicht gespeicherte Bilder wiederherstellen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Kestrio ended before the changes left the editor:
%1</source>
        <translation>Kestrio endete, bevor die Änderungen den Editor verlassen hatten:
%1</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Restore All</source>
        <translation>Alle wiederherstellen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>“%1” Was Not Restored</source>
        <translation>„%1“ wurde nicht wiederhergestellt</translation>
    </message>
    <message>
        <source>Capture %1</source>
        <translation>Aufnahme %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>No Image in Clipboard</source>
        <translation>Kein Bild in der Zwischenablage</translation>
    </message>
    <message>
        <source>Please copy an image to the clipboard first, then try again.</source>
        <translation>Bitte kopieren Sie zuerst ein Bild in die Zwischenablage und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>Select an image to beautify</source>
        <translation>Bild zum Verschönern auswählen</translation>
    </message>
    <message>
        <source>%1 requires screen recording permission to capture the screen.

Please go to %2, find %1 and enable the permission, then restart %1.

If %1 already appears enabled, toggle it off and on again (or remove it with “−” and let %1 re-add itself), then restart.</source>
        <translation>%1 braucht die Berechtigung zur Bildschirmaufnahme, um den Bildschirm aufzunehmen.

Bitte öffnen Sie %2, suchen Sie %1, aktivieren Sie die Berechtigung und starten Sie %1 dann neu.

Ist %1 dort bereits aktiviert, schalten Sie es aus und wieder ein (oder entfernen Sie es mit „−“, damit %1 sich selbst wieder einträgt) und starten Sie es dann neu.</translation>
    </message>
    <message>
        <source>The Screen Cannot Be Captured Here</source>
        <translation>Der Bildschirm kann hier nicht aufgenommen werden</translation>
    </message>
    <message>
        <source>Screen Recording Permission Required</source>
        <translation>Berechtigung zur Bildschirmaufnahme erforderlich</translation>
    </message>
    <message>
        <source>Save the changes before quitting?</source>
        <translation>Änderungen vor dem Beenden speichern?</translation>
    </message>
    <message numerus="yes">
        <source>Save the changes to %n pictures before quitting?</source>
        <translation>
            <numerusform>Änderungen an %n Bild vor dem Beenden speichern?</numerusform>
            <numerusform>Änderungen an %n Bildern vor dem Beenden speichern?</numerusform>
        </translation>
    </message>
    <message>
        <source>Changed since it last left the editor:
%1</source>
        <translation>Geändert, seit es den Editor zuletzt verlassen hat:
%1</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Kestrio quits as soon as the picture is written</source>
        <translation>Kestrio beendet sich, sobald das Bild geschrieben ist</translation>
    </message>
    <message>
        <source>“%1” Was Not Saved</source>
        <translation>„%1“ wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>%1
Kestrio goes on, so that you can save it elsewhere.</source>
        <translation>%1
Kestrio läuft weiter, damit Sie es anderswo speichern können.</translation>
    </message>
    <message>
        <source>Delayed Capture</source>
        <translation>Verzögerte Aufnahme</translation>
    </message>
    <message>
        <source>Region Capture in 3s</source>
        <translation>Bereich in 3 s aufnehmen</translation>
    </message>
    <message>
        <source>Region Capture in 5s</source>
        <translation>Bereich in 5 s aufnehmen</translation>
    </message>
    <message>
        <source>Region Capture in 10s</source>
        <translation>Bereich in 10 s aufnehmen</translation>
    </message>
    <message>
        <source>Window Capture in 3s</source>
        <translation>Fenster in 3 s aufnehmen</translation>
    </message>
    <message>
        <source>Window Capture in 5s</source>
        <translation>Fenster in 5 s aufnehmen</translation>
    </message>
    <message>
        <source>Paste from Clipboard</source>
        <translation>Aus der Zwischenablage einfügen</translation>
    </message>
    <message>
        <source>Import Image...</source>
        <translation>Bild importieren …</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Quit Kestrio</source>
        <translation>Kestrio beenden</translation>
    </message>
    <message>
        <source>Cancel Capture</source>
        <translation>Aufnahme abbrechen</translation>
    </message>
    <message>
        <source>Cancel Capture in %1s</source>
        <translation>Aufnahme in %1 s abbrechen</translation>
    </message>
    <message>
        <source>Another program holds this combination</source>
        <translation>Ein anderes Programm belegt diese Kombination</translation>
    </message>
    <message>
        <source>This keyboard cannot press this combination</source>
        <translation>Diese Tastatur kann diese Kombination nicht drücken</translation>
    </message>
    <message>
        <source>System error: %1</source>
        <translation>Systemfehler: %1</translation>
    </message>
    <message>
        <source>Screen recording permission denied. Please allow Kestrio in %1.</source>
        <translation>Keine Berechtigung zur Bildschirmaufnahme. Bitte erlauben Sie Kestrio unter %1.</translation>
    </message>
    <message>
        <source>Capture timed out. Please try again.</source>
        <translation>Zeitüberschreitung bei der Aufnahme. Bitte versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Invalid region selected</source>
        <translation>Ungültiger Bereich ausgewählt</translation>
    </message>
    <message>
        <source>Target window not found</source>
        <translation>Zielfenster nicht gefunden</translation>
    </message>
    <message>
        <source>Capture cancelled</source>
        <translation>Aufnahme abgebrochen</translation>
    </message>
    <message>
        <source>there is no display to capture</source>
        <translation>es gibt keinen Bildschirm zum Aufnehmen</translation>
    </message>
    <message>
        <source>the display was disconnected during the capture</source>
        <translation>der Bildschirm wurde während der Aufnahme getrennt</translation>
    </message>
    <message>
        <source>Click on a window to capture it. Press Escape to cancel.</source>
        <translation>Klicken Sie auf ein Fenster, um es aufzunehmen. Esc bricht ab.</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Failed to capture screen region</source>
        <translation>Der Bereich konnte nicht aufgenommen werden</translation>
    </message>
    <message>
        <source>Failed to capture display</source>
        <translation>Der Bildschirm konnte nicht aufgenommen werden</translation>
    </message>
    <message>
        <source>there is not enough memory for this</source>
        <translation>dafür reicht der Speicher nicht</translation>
    </message>
    <message>
        <source>unexpected failure: %1</source>
        <translation>unerwarteter Fehler: %1</translation>
    </message>
    <message>
        <source>expected an object</source>
        <translation>ein Objekt wurde erwartet</translation>
    </message>
    <message>
        <source>required key is missing</source>
        <translation>ein erforderlicher Schlüssel fehlt</translation>
    </message>
    <message>
        <source>expected a list</source>
        <translation>eine Liste wurde erwartet</translation>
    </message>
    <message>
        <source>expected a longer list</source>
        <translation>eine längere Liste wurde erwartet</translation>
    </message>
    <message>
        <source>expected true or false</source>
        <translation>true oder false wurde erwartet</translation>
    </message>
    <message>
        <source>expected a number</source>
        <translation>eine Zahl wurde erwartet</translation>
    </message>
    <message>
        <source>expected a whole number</source>
        <translation>eine ganze Zahl wurde erwartet</translation>
    </message>
    <message>
        <source>expected a whole number that is not negative</source>
        <translation>eine nicht negative ganze Zahl wurde erwartet</translation>
    </message>
    <message>
        <source>expected a string</source>
        <translation>eine Zeichenkette wurde erwartet</translation>
    </message>
    <message>
        <source>not valid JSON at line %1, column %2</source>
        <translation>kein gültiges JSON in Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>not valid JSON: a number is out of range</source>
        <translation>kein gültiges JSON: eine Zahl liegt außerhalb des Bereichs</translation>
    </message>
    <message>
        <source>a number is not finite</source>
        <translation>eine Zahl ist nicht endlich</translation>
    </message>
    <message>
        <source>the number is too large</source>
        <translation>die Zahl ist zu groß</translation>
    </message>
    <message>
        <source>expected base64 text</source>
        <translation>Base64-Text wurde erwartet</translation>
    </message>
    <message>
        <source>expected a UUID</source>
        <translation>eine UUID wurde erwartet</translation>
    </message>
    <message>
        <source>expected a list of two numbers</source>
        <translation>eine Liste aus zwei Zahlen wurde erwartet</translation>
    </message>
    <message>
        <source>expected [[x, y], [width, height]]</source>
        <translation>[[x, y], [Breite, Höhe]] wurde erwartet</translation>
    </message>
    <message>
        <source>unknown value &quot;%1&quot;; known are %2</source>
        <translation>unbekannter Wert „%1“; bekannt sind %2</translation>
    </message>
    <message>
        <source>it is a device or a pipe, not a file</source>
        <translation>es ist ein Gerät oder eine Pipe, keine Datei</translation>
    </message>
    <message>
        <source>it has %1, more than the %2 that can be opened</source>
        <translation>sie hat %1, mehr als die %2, die geöffnet werden können</translation>
    </message>
    <message>
        <source>The time limit was exceeded</source>
        <translation>Die Zeit wurde überschritten</translation>
    </message>
    <message>
        <source>the disk or network folder does not answer</source>
        <translation>der Datenträger oder Netzwerkordner antwortet nicht</translation>
    </message>
    <message>
        <source>Changes are not being kept on disk: %1</source>
        <translation>Änderungen werden nicht auf dem Datenträger gesichert: %1</translation>
    </message>
    <message>
        <source>Screenshot pinned to desktop</source>
        <translation>Bildschirmfoto auf dem Desktop angeheftet</translation>
    </message>
    <message>
        <source>Tip: Press V to switch to Select tool</source>
        <translation>Tipp: V wechselt zum Auswahlwerkzeug</translation>
    </message>
    <message>
        <source>Tip: Press A to switch to Arrow tool</source>
        <translation>Tipp: A wechselt zum Pfeil</translation>
    </message>
    <message>
        <source>Tip: Press R to switch to Rectangle tool</source>
        <translation>Tipp: R wechselt zum Rechteck</translation>
    </message>
    <message>
        <source>Tip: Press O to switch to Circle tool</source>
        <translation>Tipp: O wechselt zum Kreis</translation>
    </message>
    <message>
        <source>Tip: Press T to switch to Text tool</source>
        <translation>Tipp: T wechselt zum Text</translation>
    </message>
    <message>
        <source>Tip: Press N to switch to Number tool</source>
        <translation>Tipp: N wechselt zur Nummer</translation>
    </message>
    <message>
        <source>Tip: Press B to switch to Brush tool</source>
        <translation>Tipp: B wechselt zum Pinsel</translation>
    </message>
    <message>
        <source>Tip: Press H to switch to Highlighter tool</source>
        <translation>Tipp: H wechselt zum Textmarker</translation>
    </message>
    <message>
        <source>Tip: Press U to switch to Blur tool</source>
        <translation>Tipp: U wechselt zum Weichzeichnen</translation>
    </message>
    <message>
        <source>Tip: Press E to switch to Eraser tool</source>
        <translation>Tipp: E wechselt zum Radierer</translation>
    </message>
    <message>
        <source>Tip: Press ⌘Z to undo</source>
        <translation>Tipp: ⌘Z macht rückgängig</translation>
    </message>
    <message>
        <source>Tip: Press ⌘⇧Z to redo</source>
        <translation>Tipp: ⌘⇧Z wiederholt</translation>
    </message>
    <message>
        <source>Tip: Press Delete or Backspace to delete</source>
        <translation>Tipp: Entf oder Rücktaste löscht</translation>
    </message>
    <message>
        <source>Tip: Press ⌘A to select all annotations</source>
        <translation>Tipp: ⌘A wählt alle Anmerkungen aus</translation>
    </message>
    <message>
        <source>Tip: Press ⌘] to bring to front</source>
        <translation>Tipp: ⌘] holt in den Vordergrund</translation>
    </message>
    <message>
        <source>Tip: Press ⌘[ to send to back</source>
        <translation>Tipp: ⌘[ stellt in den Hintergrund</translation>
    </message>
    <message>
        <source>Tip: Press I to activate color picker</source>
        <translation>Tipp: I aktiviert die Pipette</translation>
    </message>
    <message>
        <source>Select all annotations</source>
        <translation>Alle Anmerkungen auswählen</translation>
    </message>
    <message>
        <source>⌥Click</source>
        <translation>⌥Klick</translation>
    </message>
    <message>
        <source>Cycle through overlapping</source>
        <translation>Überlappende durchgehen</translation>
    </message>
    <message>
        <source>⇧Click</source>
        <translation>⇧Klick</translation>
    </message>
    <message>
        <source>Add to selection</source>
        <translation>Zur Auswahl hinzufügen</translation>
    </message>
    <message>
        <source>Color picker</source>
        <translation>Pipette</translation>
    </message>
    <message>
        <source>Show shortcuts</source>
        <translation>Tastenkürzel anzeigen</translation>
    </message>
    <message>
        <source>⇧Drag</source>
        <translation>⇧Ziehen</translation>
    </message>
    <message>
        <source>Constrain to square/45°</source>
        <translation>Auf Quadrat/45° beschränken</translation>
    </message>
    <message>
        <source>⇧Resize</source>
        <translation>⇧Skalieren</translation>
    </message>
    <message>
        <source>Maintain aspect ratio</source>
        <translation>Seitenverhältnis beibehalten</translation>
    </message>
    <message>
        <source>Delete</source>
        <comment>a key</comment>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Save into Folder</source>
        <translation>In Ordner speichern</translation>
    </message>
    <message>
        <source>Share failed: %1</source>
        <translation>Teilen fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>The picture is still being made</source>
        <translation>Das Bild wird noch erstellt</translation>
    </message>
    <message>
        <source>blurred areas are hidden with the annotations; show them first</source>
        <translation>die weichgezeichneten Bereiche sind mit den Anmerkungen ausgeblendet; blenden Sie sie zuerst ein</translation>
    </message>
    <message>
        <source>Copied as a file</source>
        <translation>Als Datei kopiert</translation>
    </message>
    <message>
        <source>Align left edges</source>
        <translation>Linke Kanten ausrichten</translation>
    </message>
    <message>
        <source>Centre horizontally</source>
        <translation>Waagerecht zentrieren</translation>
    </message>
    <message>
        <source>Align right edges</source>
        <translation>Rechte Kanten ausrichten</translation>
    </message>
    <message>
        <source>Align top edges</source>
        <translation>Obere Kanten ausrichten</translation>
    </message>
    <message>
        <source>Centre vertically</source>
        <translation>Senkrecht zentrieren</translation>
    </message>
    <message>
        <source>Align bottom edges</source>
        <translation>Untere Kanten ausrichten</translation>
    </message>
    <message>
        <source>Choose a picture for the backdrop</source>
        <translation>Bild für den Hintergrund auswählen</translation>
    </message>
    <message>
        <source>Choose a picture for the watermark</source>
        <translation>Bild für das Wasserzeichen auswählen</translation>
    </message>
    <message>
        <source>Type two numbers above zero</source>
        <translation>Zwei Zahlen über null eingeben</translation>
    </message>
    <message>
        <source>One side may be at most 20 times the other</source>
        <translation>Eine Seite darf höchstens 20-mal so lang sein wie die andere</translation>
    </message>
    <message>
        <source>Auto beautify applied</source>
        <translation>Automatisch verschönert</translation>
    </message>
    <message>
        <source>Image enhanced</source>
        <translation>Bild verbessert</translation>
    </message>
    <message>
        <source>The picture has changed meanwhile and was not enhanced</source>
        <translation>Das Bild hat sich inzwischen geändert und wurde nicht verbessert</translation>
    </message>
    <message>
        <source>Original image restored</source>
        <translation>Originalbild wiederhergestellt</translation>
    </message>
    <message>
        <source>Everything is as at the start</source>
        <translation>Alles ist wie am Anfang</translation>
    </message>
    <message>
        <source>There is no picture on the clipboard</source>
        <translation>In der Zwischenablage ist kein Bild</translation>
    </message>
    <message>
        <source>Only pictures can be dropped here</source>
        <translation>Hier können nur Bilder abgelegt werden</translation>
    </message>
    <message>
        <source>the editor&apos;s window could not be made</source>
        <translation>das Fenster des Editors konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>Failed to pin screenshot: %1</source>
        <translation>Das Bildschirmfoto konnte nicht angeheftet werden: %1</translation>
    </message>
    <message>
        <source>Copy failed: %1</source>
        <translation>Kopieren fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Blurred areas are hidden; show the annotations before you drag the picture</source>
        <translation>Weichgezeichnete Bereiche sind ausgeblendet; blenden Sie die Anmerkungen ein, bevor Sie das Bild ziehen</translation>
    </message>
    <message>
        <source>A theme needs a name</source>
        <translation>Ein Design braucht einen Namen</translation>
    </message>
    <message>
        <source>Theme saved</source>
        <translation>Design gespeichert</translation>
    </message>
    <message>
        <source>its header ends early</source>
        <translation>der Dateikopf endet zu früh</translation>
    </message>
    <message>
        <source>its width or height is not positive</source>
        <translation>Breite oder Höhe ist nicht positiv</translation>
    </message>
    <message>
        <source>its pixels are said to begin inside its header</source>
        <translation>die Pixel sollen im Dateikopf beginnen</translation>
    </message>
    <message>
        <source>its pixel data ends early</source>
        <translation>die Pixeldaten enden zu früh</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>it ends early</source>
        <translation>es endet zu früh</translation>
    </message>
    <message>
        <source>its pixel data is garbled</source>
        <translation>die Pixeldaten sind verfälscht</translation>
    </message>
    <message>
        <source>it holds no frame</source>
        <translation>es enthält kein Einzelbild</translation>
    </message>
    <message>
        <source>its blocks are garbled</source>
        <translation>die Blöcke sind verfälscht</translation>
    </message>
    <message>
        <source>a BigTIFF</source>
        <translation>ein BigTIFF</translation>
    </message>
    <message>
        <source>a %1 file holds at most %2 x %2 pixels, the picture has %3 x %4; write PNG instead</source>
        <translation>eine %1-Datei fasst höchstens %2 x %2 Pixel, das Bild hat %3 x %4; schreiben Sie stattdessen PNG</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be read: %2.</source>
        <translation>Die Datei „%1“ kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The picture is empty: it holds no data at all.</source>
        <translation>Das Bild ist leer: Es enthält keine Daten.</translation>
    </message>
    <message>
        <source>The picture is %1, which is not supported; please save it as PNG first.</source>
        <translation>Das Bild ist %1, was nicht unterstützt wird; bitte speichern Sie es zuerst als PNG.</translation>
    </message>
    <message>
        <source>This is not a picture in a supported format; please choose a PNG, JPEG, WebP, BMP, GIF, ICO, PPM or TIFF file.</source>
        <translation>Dies ist kein Bild in einem unterstützten Format; bitte wählen Sie eine PNG-, JPEG-, WebP-, BMP-, GIF-, ICO-, PPM- oder TIFF-Datei.</translation>
    </message>
    <message>
        <source>The picture is damaged or incomplete: %1.</source>
        <translation>Das Bild ist beschädigt oder unvollständig: %1.</translation>
    </message>
    <message>
        <source>The picture claims %1 × %2 pixels, which is more than can be opened; please scale it down first.</source>
        <translation>Das Bild gibt %1 × %2 Pixel an, mehr als geöffnet werden können; bitte verkleinern Sie es zuerst.</translation>
    </message>
    <message>
        <source>it holds less data than its size asks for</source>
        <translation>es enthält weniger Daten, als seine Größe verlangt</translation>
    </message>
    <message>
        <source>it ends before its size is given</source>
        <translation>es endet vor der Angabe seiner Größe</translation>
    </message>
    <message>
        <source>its pixel data ends early or is garbled</source>
        <translation>die Pixeldaten enden zu früh oder sind verfälscht</translation>
    </message>
    <message>
        <source>a TIFF with floating-point samples</source>
        <translation>ein TIFF mit Gleitkommawerten</translation>
    </message>
    <message>
        <source>a TIFF with signed or complex samples</source>
        <translation>ein TIFF mit vorzeichenbehafteten oder komplexen Werten</translation>
    </message>
    <message>
        <source>a TIFF with %1 samples of %2 bits a pixel and compression %3</source>
        <translation>ein TIFF mit %1 Werten zu %2 Bit je Pixel und Kompression %3</translation>
    </message>
    <message>
        <source>its chunks end early or are garbled</source>
        <translation>die Abschnitte enden zu früh oder sind verfälscht</translation>
    </message>
    <message>
        <source>a WebP file holds at most 4 GiB</source>
        <translation>eine WebP-Datei fasst höchstens 4 GiB</translation>
    </message>
    <message>
        <source>Failed to write file: %1</source>
        <translation>Die Datei konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>WebP export is not available on this system. Please export as PNG or JPEG.</source>
        <translation>WebP-Export ist auf diesem System nicht verfügbar. Bitte exportieren Sie als PNG oder JPEG.</translation>
    </message>
    <message>
        <source>Unsupported export format: %1</source>
        <translation>Nicht unterstütztes Exportformat: %1</translation>
    </message>
    <message>
        <source>Image rendering failed</source>
        <translation>Das Bild konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>Failed to copy to clipboard</source>
        <translation>Kopieren in die Zwischenablage fehlgeschlagen</translation>
    </message>
    <message>
        <source>Unsupported export format</source>
        <translation>Nicht unterstütztes Exportformat</translation>
    </message>
    <message>
        <source>Insufficient disk space</source>
        <translation>Nicht genügend Speicherplatz</translation>
    </message>
    <message>
        <source>Export cancelled by user</source>
        <translation>Export vom Benutzer abgebrochen</translation>
    </message>
    <message>
        <source>Copied!</source>
        <translation>Kopiert!</translation>
    </message>
    <message>
        <source>No color</source>
        <translation>Keine Farbe</translation>
    </message>
    <message>
        <source>it does not name its picture</source>
        <translation>er nennt sein Bild nicht</translation>
    </message>
    <message>
        <source>Date (yyyy-MM-dd)</source>
        <translation>Datum (JJJJ-MM-TT)</translation>
    </message>
    <message>
        <source>Time (HH-mm-ss)</source>
        <translation>Uhrzeit (HH-mm-ss)</translation>
    </message>
    <message>
        <source>Sequence</source>
        <translation>Laufende Nummer</translation>
    </message>
    <message>
        <source>Pinned Screenshot</source>
        <translation>Angeheftetes Bildschirmfoto</translation>
    </message>
    <message>
        <source>Num %1</source>
        <translation>Num %1</translation>
    </message>
    <message>
        <source>Key %1</source>
        <translation>Taste %1</translation>
    </message>
    <message>
        <source>Show in File Manager</source>
        <translation>In Dateiverwaltung anzeigen</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Settings → Privacy → Screen Sharing</source>
        <translation>Einstellungen → Datenschutz → Bildschirmfreigabe</translation>
    </message>
    <message>
        <source>the display refuses the connection; it may serve too many programs, so close some and try again</source>
        <translation>die Anzeige verweigert die Verbindung; vielleicht bedient sie zu viele Programme, schließen Sie also einige und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>&quot;%1&quot; exists already. Replace it?</source>
        <translation>„%1“ existiert bereits. Ersetzen?</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>This version of Kestrio captures the screen of X11 sessions, and this is a Wayland session. To capture, choose an X11 session when you log in.

Everything else works here too: take a screenshot with the desktop&apos;s own tool, then open it with “Paste from Clipboard” or “Import Image”, or with “kestrio edit” and “kestrio render” on the command line.</source>
        <translation>Diese Version von Kestrio nimmt den Bildschirm in X11-Sitzungen auf, und dies ist eine Wayland-Sitzung. Wählen Sie zum Aufnehmen bei der Anmeldung eine X11-Sitzung.

Alles andere funktioniert auch hier: Machen Sie ein Bildschirmfoto mit dem Werkzeug des Desktops und öffnen Sie es dann mit „Aus der Zwischenablage einfügen“ oder „Bild importieren“ oder auf der Befehlszeile mit „kestrio edit“ und „kestrio render“.</translation>
    </message>
    <message>
        <source>The clipboard cannot be read: the display takes no more programs</source>
        <translation>Die Zwischenablage kann nicht gelesen werden: Die Anzeige nimmt keine weiteren Programme an</translation>
    </message>
    <message>
        <source>The program that holds the clipboard does not answer</source>
        <translation>Das Programm, das die Zwischenablage hält, antwortet nicht</translation>
    </message>
    <message>
        <source>What is on the clipboard is too large</source>
        <translation>Der Inhalt der Zwischenablage ist zu groß</translation>
    </message>
    <message>
        <source>What was copied could not be kept on the clipboard</source>
        <translation>Das Kopierte konnte nicht in der Zwischenablage gehalten werden</translation>
    </message>
    <message>
        <source>the window has gone</source>
        <translation>das Fenster ist nicht mehr da</translation>
    </message>
    <message>
        <source>the screen cannot be read</source>
        <translation>der Bildschirm kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>there is no mail program; install one, and xdg-utils with it</source>
        <translation>es gibt kein E-Mail-Programm; installieren Sie eines und dazu xdg-utils</translation>
    </message>
    <message>
        <source>the program is no longer installed</source>
        <translation>das Programm ist nicht mehr installiert</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>Invalid image input</source>
        <translation>Ungültiges Eingabebild</translation>
    </message>
    <message>
        <source>AI enhancement failed</source>
        <translation>KI-Verbesserung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Enhance Colours</source>
        <translation>Farben verbessern</translation>
    </message>
    <message>
        <source>the picture would have %1 x %2 pixels, at most %3 a side are possible</source>
        <translation>das Bild hätte %1 x %2 Pixel, möglich sind höchstens %3 je Seite</translation>
    </message>
    <message>
        <source>the picture would have %1 x %2 pixels, at most 256 million are possible</source>
        <translation>das Bild hätte %1 x %2 Pixel, möglich sind höchstens 256 Millionen</translation>
    </message>
    <message>
        <source>the canvas has no size</source>
        <translation>die Leinwand hat keine Größe</translation>
    </message>
    <message>
        <source>the canvas has too few points for a shadow on so many pixels</source>
        <translation>die Leinwand hat zu wenige Punkte für einen Schatten auf so vielen Pixeln</translation>
    </message>
    <message>
        <source>Theme not found: %1</source>
        <translation>Design nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Theme name already exists: %1</source>
        <translation>Name des Designs existiert bereits: %1</translation>
    </message>
    <message>
        <source>Theme encoding failed</source>
        <translation>Das Design konnte nicht kodiert werden</translation>
    </message>
    <message>
        <source>Theme decoding failed</source>
        <translation>Das Design konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Failed to save theme: %1</source>
        <translation>Das Design konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>%1:1 (Landscape)</source>
        <translation>%1:1 (Querformat)</translation>
    </message>
    <message>
        <source>1:%1 (Portrait)</source>
        <translation>1:%1 (Hochformat)</translation>
    </message>
    <message>
        <source>1:1 (Square)</source>
        <translation>1:1 (Quadrat)</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <source>Gradient</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Soft</source>
        <translation>Weich</translation>
    </message>
    <message>
        <source>Dreamy</source>
        <translation>Verträumt</translation>
    </message>
    <message>
        <source>Vintage</source>
        <translation>Vintage</translation>
    </message>
    <message>
        <source>Vivid</source>
        <translation>Lebhaft</translation>
    </message>
    <message>
        <source>Muted</source>
        <translation>Gedämpft</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Hazy</source>
        <translation>Dunstig</translation>
    </message>
    <message>
        <source>Sharp</source>
        <translation>Scharf</translation>
    </message>
    <message>
        <source>Grainy</source>
        <translation>Körnig</translation>
    </message>
    <message>
        <source>Foggy</source>
        <translation>Neblig</translation>
    </message>
    <message>
        <source>Saturated</source>
        <translation>Gesättigt</translation>
    </message>
    <message>
        <source>Stack</source>
        <translation>Stapel</translation>
    </message>
    <message>
        <source>Stack 2</source>
        <translation>Stapel 2</translation>
    </message>
    <message>
        <source>macOS window frame</source>
        <translation>macOS-Fensterrahmen</translation>
    </message>
    <message>
        <source>Safari browser frame</source>
        <translation>Safari-Browserrahmen</translation>
    </message>
    <message>
        <source>Arc browser frame</source>
        <translation>Arc-Browserrahmen</translation>
    </message>
    <message>
        <source>Windows window frame</source>
        <translation>Windows-Fensterrahmen</translation>
    </message>
    <message>
        <source>Sunset</source>
        <translation>Sonnenuntergang</translation>
    </message>
    <message>
        <source>Fire</source>
        <translation>Feuer</translation>
    </message>
    <message>
        <source>Rose</source>
        <translation>Rose</translation>
    </message>
    <message>
        <source>Peach</source>
        <translation>Pfirsich</translation>
    </message>
    <message>
        <source>Coral</source>
        <translation>Koralle</translation>
    </message>
    <message>
        <source>Ocean</source>
        <translation>Ozean</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Himmel</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>Mitternacht</translation>
    </message>
    <message>
        <source>Arctic</source>
        <translation>Arktis</translation>
    </message>
    <message>
        <source>Deep Sea</source>
        <translation>Tiefsee</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Wald</translation>
    </message>
    <message>
        <source>Moss</source>
        <translation>Moos</translation>
    </message>
    <message>
        <source>Autumn</source>
        <translation>Herbst</translation>
    </message>
    <message>
        <source>Earth</source>
        <translation>Erde</translation>
    </message>
    <message>
        <source>Spring</source>
        <translation>Frühling</translation>
    </message>
    <message>
        <source>Lavender</source>
        <translation>Lavendel</translation>
    </message>
    <message>
        <source>Neon</source>
        <translation>Neon</translation>
    </message>
    <message>
        <source>Aurora</source>
        <translation>Polarlicht</translation>
    </message>
    <message>
        <source>Candy</source>
        <translation>Bonbon</translation>
    </message>
    <message>
        <source>Electric</source>
        <translation>Elektrisch</translation>
    </message>
    <message>
        <source>Silver</source>
        <translation>Silber</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>Anthrazit</translation>
    </message>
    <message>
        <source>Cream</source>
        <translation>Creme</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>Schiefer</translation>
    </message>
    <message>
        <source>Warm</source>
        <translation>Warm</translation>
    </message>
    <message>
        <source>Cool</source>
        <translation>Kühl</translation>
    </message>
    <message>
        <source>Nature</source>
        <translation>Natur</translation>
    </message>
    <message>
        <source>Vibrant</source>
        <translation>Kräftig</translation>
    </message>
    <message>
        <source>Neutral</source>
        <translation>Neutral</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Stretch</source>
        <translation>Strecken</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Leicht</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Stark</translation>
    </message>
    <message>
        <source>Top Left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top Right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom Left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom Right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Diagonal Shadow</source>
        <translation>Diagonaler Schatten</translation>
    </message>
    <message>
        <source>Natural Shadow</source>
        <translation>Natürlicher Schatten</translation>
    </message>
    <message>
        <source>Soft Glow</source>
        <translation>Sanftes Leuchten</translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation>Vignette</translation>
    </message>
    <message>
        <source>Underlay</source>
        <translation>Darunter</translation>
    </message>
    <message>
        <source>Circles</source>
        <translation>Kreise</translation>
    </message>
    <message>
        <source>Waves</source>
        <translation>Wellen</translation>
    </message>
    <message>
        <source>Dots</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Rays</source>
        <translation>Strahlen</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Stripes</source>
        <translation>Streifen</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>Bühne</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Schlicht</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>Gepunktet</translation>
    </message>
    <message>
        <source>Top Center</source>
        <translation>Oben Mitte</translation>
    </message>
    <message>
        <source>Middle Left</source>
        <translation>Mitte links</translation>
    </message>
    <message>
        <source>Middle Right</source>
        <translation>Mitte rechts</translation>
    </message>
    <message>
        <source>Bottom Center</source>
        <translation>Unten Mitte</translation>
    </message>
    <message>
        <source>Failed to save preset: %1</source>
        <translation>Die Vorlage konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Preset name already exists: %1</source>
        <translation>Name der Vorlage existiert bereits: %1</translation>
    </message>
    <message>
        <source>Invalid watermark image data</source>
        <translation>Ungültige Bilddaten des Wasserzeichens</translation>
    </message>
    <message>
        <source>Watermark preset not found</source>
        <translation>Wasserzeichenvorlage nicht gefunden</translation>
    </message>
    <message>
        <source>Failed to encode preset data</source>
        <translation>Die Vorlage konnte nicht kodiert werden</translation>
    </message>
    <message>
        <source>the stored presets cannot be read: %1</source>
        <translation>die gespeicherten Vorlagen können nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Preset name cannot be empty</source>
        <translation>Der Name der Vorlage darf nicht leer sein</translation>
    </message>
    <message>
        <source>Preset &apos;%1&apos; saved</source>
        <translation>Vorlage „%1“ gespeichert</translation>
    </message>
    <message>
        <source>Preset deleted</source>
        <translation>Vorlage gelöscht</translation>
    </message>
    <message>
        <source>The saved watermark presets cannot be read</source>
        <translation>Die gespeicherten Wasserzeichenvorlagen können nicht gelesen werden</translation>
    </message>
    <message>
        <source>System Default</source>
        <translation>Systemstandard</translation>
    </message>
    <message>
        <source>Manual scroll</source>
        <translation>Manuell rollen</translation>
    </message>
    <message>
        <source>Auto scroll</source>
        <translation>Automatisch rollen</translation>
    </message>
    <message>
        <source>Use 3 or 6 hex digits</source>
        <translation>3 oder 6 Hex-Ziffern verwenden</translation>
    </message>
    <message>
        <source>Invalid characters</source>
        <translation>Ungültige Zeichen</translation>
    </message>
    <message>
        <source>the connection to the display was lost</source>
        <translation>die Verbindung zur Anzeige ist abgebrochen</translation>
    </message>
    <message>
        <source>there is no display to open a window on; start it in a desktop session</source>
        <translation>es gibt keine Anzeige für ein Fenster; starten Sie es in einer Desktop-Sitzung</translation>
    </message>
    <message>
        <source>“%1”, %2</source>
        <translation>„%1“, %2</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>Putting the picture together…</source>
        <translation>Das Bild wird zusammengesetzt …</translation>
    </message>
    <message>
        <source>Paste a picture</source>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>Apply the crop</source>
        <translation>Zuschnitt anwenden</translation>
    </message>
    <message>
        <source>Cancel the crop</source>
        <translation>Zuschnitt abbrechen</translation>
    </message>
    <message>
        <source>Cancel what is being drawn or moved</source>
        <translation>Zeichnen oder Verschieben abbrechen</translation>
    </message>
    <message>
        <source>Hide shortcuts</source>
        <translation>Tastenkürzel ausblenden</translation>
    </message>
    <message>
        <source>Pick no colour</source>
        <translation>Keine Farbe aufnehmen</translation>
    </message>
    <message>
        <source>Leave annotation mode</source>
        <translation>Anmerkungsmodus verlassen</translation>
    </message>
    <message>
        <source>Fit the picture into the window</source>
        <translation>Bild einpassen</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>The screen cannot be read</source>
        <translation>Der Bildschirm kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>The connection to the screen was lost</source>
        <translation>Die Verbindung zum Bildschirm ist abgebrochen</translation>
    </message>
    <message>
        <source>The screen does not report what changes on it</source>
        <translation>Der Bildschirm meldet nicht, was sich auf ihm ändert</translation>
    </message>
    <message>
        <source>The screen does not answer</source>
        <translation>Der Bildschirm antwortet nicht</translation>
    </message>
    <message>
        <source>The display that was being captured has changed</source>
        <translation>Der aufgenommene Bildschirm hat sich geändert</translation>
    </message>
    <message>
        <source>No display available for scrolling capture</source>
        <translation>Für die Aufnahme mit Scrollen ist kein Bildschirm verfügbar</translation>
    </message>
    <message>
        <source>Manual scrolling capture region must stay within one display</source>
        <translation>Der Bereich einer Aufnahme mit Scrollen von Hand muss auf einem Bildschirm bleiben</translation>
    </message>
    <message>
        <source>Waiting for capture...</source>
        <translation>Warten auf die Aufnahme …</translation>
    </message>
    <message>
        <source>Bottom reached</source>
        <translation>Ende erreicht</translation>
    </message>
    <message>
        <source>Throw away what was captured</source>
        <translation>Das Aufgenommene verwerfen</translation>
    </message>
    <message>
        <source>Esc to cancel</source>
        <translation>Esc zum Abbrechen</translation>
    </message>
    <message>
        <source>Scroll the target window to capture...</source>
        <translation>Scrollen Sie das Zielfenster, um es aufzunehmen …</translation>
    </message>
    <message>
        <source>Region selected. Click to start auto-scroll capture.</source>
        <translation>Bereich ausgewählt. Klicken, um die rollende Aufnahme zu starten.</translation>
    </message>
    <message>
        <source>Auto-scrolling capture in progress...</source>
        <translation>Die automatische rollende Aufnahme läuft …</translation>
    </message>
    <message>
        <source>Start Scrolling</source>
        <translation>Scrollen starten</translation>
    </message>
    <message>
        <source>Scroll and capture the window</source>
        <translation>Das Fenster scrollen und aufnehmen</translation>
    </message>
    <message>
        <source>Make one picture of all frames</source>
        <translation>Aus allen Bildern eines machen</translation>
    </message>
    <message>
        <source>Enter to start</source>
        <translation>Enter zum Starten</translation>
    </message>
    <message>
        <source>Enter to stop</source>
        <translation>Enter zum Anhalten</translation>
    </message>
    <message numerus="yes">
        <source>%Ln frames, %1 px</source>
        <translation>
            <numerusform>%Ln Bild, %1 px</numerusform>
            <numerusform>%Ln Bilder, %1 px</numerusform>
        </translation>
    </message>
    <message>
        <source>This desktop does not let programs follow the screen.</source>
        <translation>Diese Arbeitsumgebung lässt Programme den Bildschirm nicht verfolgen.</translation>
    </message>
    <message>
        <source>Captures the screen: a region or a window of the user&apos;s choice, the display under the pointer, or a page that is scrolled. Without an option for what becomes of the picture, the user decides, or the editor opens.</source>
        <translation>Nimmt den Bildschirm auf: einen Bereich oder ein Fenster nach Wahl des Benutzers, den Bildschirm unter dem Zeiger oder eine Seite, die gerollt wird. Ohne eine Option dafür, was aus dem Bild wird, entscheidet der Benutzer, oder der Editor öffnet sich.</translation>
    </message>
    <message>
        <source>region, window, display or scrolling</source>
        <translation>region, window, display oder scrolling</translation>
    </message>
    <message>
        <source>scrolling: let Kestrio scroll down to the end</source>
        <translation>scrolling: Kestrio rollt selbst bis zum Ende</translation>
    </message>
    <message>
        <source>scrolling: this part of the desktop, in points; --auto then begins by itself</source>
        <translation>scrolling: dieser Teil der Arbeitsfläche, in Punkten; --auto beginnt dann von selbst</translation>
    </message>
    <message>
        <source>say what to capture: region, window, display or scrolling</source>
        <translation>geben Sie an, was aufgenommen werden soll: region, window, display oder scrolling</translation>
    </message>
    <message>
        <source>--region takes left, top, width and height in points, as in 100,80,800,600</source>
        <translation>--region erwartet links, oben, Breite und Höhe in Punkten, etwa 100,80,800,600</translation>
    </message>
    <message>
        <source>capture a region, a window, a display or a scrolled page</source>
        <translation>einen Bereich, ein Fenster, einen Bildschirm oder eine gerollte Seite aufnehmen</translation>
    </message>
    <message>
        <source>join frames of a scrolled page into one tall picture</source>
        <translation>Bilder einer gerollten Seite zu einem langen Bild zusammensetzen</translation>
    </message>
    <message>
        <source>Joins frames of a scrolled page into one tall picture.</source>
        <translation>Setzt Bilder einer gerollten Seite zu einem langen Bild zusammen.</translation>
    </message>
    <message>
        <source>pictures of one size, from the top of the page down</source>
        <translation>Bilder einer Größe, vom Anfang der Seite abwärts</translation>
    </message>
    <message>
        <source>the file to write</source>
        <translation>die Datei, die geschrieben wird</translation>
    </message>
    <message>
        <source>join frames that do not continue the ones before, and say where</source>
        <translation>auch Bilder ansetzen, die nicht an die vorigen anschließen, und sagen, wo</translation>
    </message>
    <message>
        <source>print what became of each frame as JSON</source>
        <translation>als JSON ausgeben, was aus jedem Bild wurde</translation>
    </message>
    <message>
        <source>cannot infer the format of %1; known endings are %2</source>
        <translation>das Format von %1 ist nicht zu erkennen; bekannte Endungen sind %2</translation>
    </message>
    <message>
        <source>say where the result goes: -o OUTPUT</source>
        <translation>geben Sie an, wohin das Ergebnis soll: -o OUTPUT</translation>
    </message>
    <message>
        <source>it shows the same as the frame before</source>
        <translation>es zeigt dasselbe wie das Bild davor</translation>
    </message>
    <message>
        <source>it adds no rows</source>
        <translation>es bringt keine neuen Zeilen</translation>
    </message>
    <message>
        <source>it moved sideways</source>
        <translation>es hat sich seitwärts bewegt</translation>
    </message>
    <message>
        <source>the picture would become too large</source>
        <translation>das Bild würde zu groß</translation>
    </message>
    <message>
        <source>it does not continue the frame before</source>
        <translation>es schließt nicht an das Bild davor an</translation>
    </message>
    <message>
        <source>frame %1 (%2) was joined at row %3 without a match: %4</source>
        <translation>Bild %1 (%2) wurde bei Zeile %3 ohne Übereinstimmung angesetzt: %4</translation>
    </message>
    <message>
        <source>frame %1 (%2) was not appended: %3</source>
        <translation>Bild %1 (%2) wurde nicht angesetzt: %3</translation>
    </message>
    <message>
        <source>no frame could be read</source>
        <translation>kein Bild war lesbar</translation>
    </message>
    <message>
        <source>there is not enough room for the picture in memory or in the temporary folder</source>
        <translation>im Speicher oder im Ordner für temporäre Dateien ist nicht genug Platz für das Bild</translation>
    </message>
    <message>
        <source>the frames do not make one picture, nothing was written; --keep-going joins them nevertheless</source>
        <translation>die Bilder ergeben kein Ganzes, nichts wurde geschrieben; --keep-going setzt sie dennoch zusammen</translation>
    </message>
    <message>
        <source>Scrolling Capture Error</source>
        <translation>Fehler bei der rollenden Aufnahme</translation>
    </message>
    <message>
        <source>only scrolling captures scroll by themselves or take a region</source>
        <translation>nur rollende Aufnahmen rollen von selbst oder haben einen Bereich</translation>
    </message>
    <message>
        <source>a region is its left, top, width and height in points</source>
        <translation>ein Bereich besteht aus links, oben, Breite und Höhe in Punkten</translation>
    </message>
    <message>
        <source>Keep What Was Captured</source>
        <translation>Aufgenommenes behalten</translation>
    </message>
    <message>
        <source>Automatic Scrolling Capture</source>
        <translation>Automatisch rollende Aufnahme</translation>
    </message>
    <message>
        <source>Failed to capture initial frame</source>
        <translation>Das erste Bild konnte nicht aufgenommen werden</translation>
    </message>
    <message>
        <source>Screen capture stream stopped: %1</source>
        <translation>Die Bildschirmaufnahme wurde beendet: %1</translation>
    </message>
    <message>
        <source>Screen capture stream produced no initial frame</source>
        <translation>Die Bildschirmaufnahme lieferte kein erstes Bild</translation>
    </message>
    <message>
        <source>Frame %1 has no overlap with previous frame; content may be discontinuous</source>
        <translation>Bild %1 überschneidet sich nicht mit dem vorigen; der Inhalt könnte Lücken haben</translation>
    </message>
    <message>
        <source>Automatic scrolling is not possible: this desktop does not let programs turn the wheel. Please use manual scrolling.</source>
        <translation>Automatisches Rollen ist nicht möglich: Diese Arbeitsumgebung lässt Programme das Mausrad nicht drehen. Bitte rollen Sie von Hand.</translation>
    </message>
    <message>
        <source>Selected region is too small. Please select a larger area.</source>
        <translation>Der gewählte Bereich ist zu klein. Bitte wählen Sie einen größeren.</translation>
    </message>
    <message>
        <source>Maximum frame limit reached</source>
        <translation>Die Höchstzahl an Bildern ist erreicht</translation>
    </message>
    <message>
        <source>Capture timed out</source>
        <translation>Die Aufnahme dauerte zu lange</translation>
    </message>
    <message>
        <source>Insufficient image features for matching</source>
        <translation>Zu wenige Bildmerkmale zum Vergleichen</translation>
    </message>
    <message>
        <source>Match confidence too low</source>
        <translation>Die Bilder passen zu unsicher zusammen</translation>
    </message>
    <message>
        <source>No captured frame is available for stitching.</source>
        <translation>Es gibt kein aufgenommenes Bild zum Zusammensetzen.</translation>
    </message>
    <message>
        <source>Image stitching failed</source>
        <translation>Das Zusammensetzen ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Out of memory. Please reduce the number of screenshots.</source>
        <translation>Nicht genug Speicher. Bitte nehmen Sie weniger Bilder auf.</translation>
    </message>
    <message>
        <source>Scrolling capture cancelled</source>
        <translation>Rollende Aufnahme abgebrochen</translation>
    </message>
    <message>
        <source>A scrolling capture is already active</source>
        <translation>Eine rollende Aufnahme läuft bereits</translation>
    </message>
    <message>
        <source>Scroll up and down only.</source>
        <translation>Nur auf und ab rollen.</translation>
    </message>
    <message>
        <source>Scroll down to go on.</source>
        <translation>Rollen Sie abwärts weiter.</translation>
    </message>
    <message>
        <source>The rows repeat. Scroll on slowly.</source>
        <translation>Die Zeilen wiederholen sich. Rollen Sie langsam weiter.</translation>
    </message>
    <message>
        <source>Too fast. Scroll back a little.</source>
        <translation>Zu schnell. Rollen Sie ein wenig zurück.</translation>
    </message>
    <message>
        <source>it was scrolled back</source>
        <translation>es wurde zurückgerollt</translation>
    </message>
    <message>
        <source>it shows rows above the first frame</source>
        <translation>es zeigt Zeilen über dem ersten Bild</translation>
    </message>
    <message>
        <source>its rows repeat, so that several motions explain it</source>
        <translation>seine Zeilen wiederholen sich, sodass mehrere Bewegungen möglich sind</translation>
    </message>
    <message>
        <source>the rows that it shares with the frame before are blank</source>
        <translation>die Zeilen, die es mit dem Bild davor gemeinsam hat, sind leer</translation>
    </message>
    <message>
        <source>its parts moved differently</source>
        <translation>seine Teile haben sich verschieden bewegt</translation>
    </message>
    <message>
        <source>it was scrolled too far, so that rows are missing</source>
        <translation>es wurde zu weit gerollt, sodass Zeilen fehlen</translation>
    </message>
    <message>
        <source>its size differs</source>
        <translation>seine Größe weicht ab</translation>
    </message>
    <message>
        <source>Scrolling capture</source>
        <translation>Rollende Aufnahme</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>The region does not lie on the screen.</source>
        <translation>Der Bereich liegt nicht auf dem Bildschirm.</translation>
    </message>
    <message>
        <source>The temporary folder %1 has no room for so tall a picture.</source>
        <translation>Der temporäre Ordner %1 hat keinen Platz für ein so hohes Bild.</translation>
    </message>
    <message>
        <source>Recognition failed: %1</source>
        <translation>Texterkennung fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Failed to process image</source>
        <translation>Das Bild konnte nicht verarbeitet werden</translation>
    </message>
    <message>
        <source>OCR timed out. Try with a smaller image.</source>
        <translation>Die Texterkennung hat zu lange gedauert. Versuchen Sie es mit einem kleineren Bild.</translation>
    </message>
    <message>
        <source>Invalid image</source>
        <translation>Ungültiges Bild</translation>
    </message>
    <message>
        <source>No text detected in image</source>
        <translation>Kein Text im Bild gefunden</translation>
    </message>
    <message>
        <source>Selected region is outside image bounds</source>
        <translation>Der gewählte Bereich liegt außerhalb des Bildes</translation>
    </message>
    <message>
        <source>Text recognition is not installed: %1 is missing. Install Kestrio again.</source>
        <translation>Die Texterkennung ist nicht installiert: %1 fehlt. Installieren Sie Kestrio erneut.</translation>
    </message>
    <message>
        <source>Text recognition is damaged: the list of characters does not fit the model. Install Kestrio again.</source>
        <translation>Die Texterkennung ist beschädigt: Die Zeichenliste passt nicht zum Modell. Installieren Sie Kestrio erneut.</translation>
    </message>
    <message>
        <source>The text recognition engine failed: %1</source>
        <translation>Die Texterkennung ist gescheitert: %1</translation>
    </message>
    <message>
        <source>Text recognition is damaged: %1 cannot be loaded. Install Kestrio again.</source>
        <translation>Die Texterkennung ist beschädigt: %1 lässt sich nicht laden. Installieren Sie Kestrio erneut.</translation>
    </message>
    <message>
        <source>Pattern not found: %1</source>
        <translation>Muster nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Cannot save built-in patterns as custom patterns</source>
        <translation>Eingebaute Muster lassen sich nicht als eigene Muster sichern</translation>
    </message>
    <message>
        <source>Pattern with ID %1 already exists. Use updateCustomPattern instead.</source>
        <translation>Ein Muster mit der ID %1 gibt es schon. Verwenden Sie stattdessen updateCustomPattern.</translation>
    </message>
    <message>
        <source>Cannot update built-in patterns</source>
        <translation>Eingebaute Muster lassen sich nicht ändern</translation>
    </message>
    <message>
        <source>Failed to encode patterns: %1</source>
        <translation>Die Muster ließen sich nicht kodieren: %1</translation>
    </message>
    <message>
        <source>Email Address</source>
        <translation>E-Mail-Adresse</translation>
    </message>
    <message>
        <source>Matches standard email addresses</source>
        <translation>Findet übliche E-Mail-Adressen</translation>
    </message>
    <message>
        <source>Credit Card Number</source>
        <translation>Kreditkartennummer</translation>
    </message>
    <message>
        <source>Matches credit card numbers with optional separators</source>
        <translation>Findet Kreditkartennummern mit oder ohne Trennzeichen</translation>
    </message>
    <message>
        <source>IPv4 Address</source>
        <translation>IPv4-Adresse</translation>
    </message>
    <message>
        <source>Matches IPv4 addresses</source>
        <translation>Findet IPv4-Adressen</translation>
    </message>
    <message>
        <source>IPv6 Address</source>
        <translation>IPv6-Adresse</translation>
    </message>
    <message>
        <source>Matches IPv6 addresses</source>
        <translation>Findet IPv6-Adressen</translation>
    </message>
    <message>
        <source>API Key</source>
        <translation>API-Schlüssel</translation>
    </message>
    <message>
        <source>Matches common API key formats</source>
        <translation>Findet übliche Formate von API-Schlüsseln</translation>
    </message>
    <message>
        <source>Phone Number</source>
        <translation>Telefonnummer</translation>
    </message>
    <message>
        <source>Matches phone numbers in various formats</source>
        <translation>Findet Telefonnummern in verschiedenen Schreibweisen</translation>
    </message>
    <message>
        <source>AWS Access Key</source>
        <translation>AWS-Zugriffsschlüssel</translation>
    </message>
    <message>
        <source>Matches AWS access key IDs</source>
        <translation>Findet IDs von AWS-Zugriffsschlüsseln</translation>
    </message>
    <message>
        <source>GitHub Token</source>
        <translation>GitHub-Token</translation>
    </message>
    <message>
        <source>Matches GitHub personal access tokens</source>
        <translation>Findet persönliche Zugriffstoken von GitHub</translation>
    </message>
    <message>
        <source>Social Security Number</source>
        <translation>Sozialversicherungsnummer</translation>
    </message>
    <message>
        <source>Matches US SSN format (XXX-XX-XXXX)</source>
        <translation>Findet Nummern der US-Sozialversicherung (XXX-XX-XXXX)</translation>
    </message>
    <message>
        <source>MAC Address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>Matches MAC addresses</source>
        <translation>Findet MAC-Adressen</translation>
    </message>
    <message>
        <source>JWT Token</source>
        <translation>JWT-Token</translation>
    </message>
    <message>
        <source>Matches JSON Web Tokens</source>
        <translation>Findet JSON-Web-Tokens</translation>
    </message>
    <message>
        <source>OCR failed: %1</source>
        <translation>Texterkennung fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Processing failed: %1</source>
        <translation>Verarbeitung fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>No image provided for scanning</source>
        <translation>Es ist kein Bild zum Durchsuchen da</translation>
    </message>
    <message>
        <source>Text cannot be recognised on this system.</source>
        <translation>Auf diesem System lässt sich kein Text erkennen.</translation>
    </message>
    <message>
        <source>print the text of a picture</source>
        <translation>den Text eines Bildes ausgeben</translation>
    </message>
    <message>
        <source>Prints the text of a picture, line by line in reading order.</source>
        <translation>Gibt den Text eines Bildes aus, Zeile für Zeile in Lesereihenfolge.</translation>
    </message>
    <message>
        <source>a picture</source>
        <translation>ein Bild</translation>
    </message>
    <message>
        <source>read this part of the picture only, in pixels</source>
        <translation>nur diesen Teil des Bildes lesen, in Pixeln</translation>
    </message>
    <message>
        <source>print the lines as JSON, with their places in pixels, how sure their reading is, and whether they are code</source>
        <translation>die Zeilen als JSON ausgeben, mit ihrer Lage in Pixeln, wie sicher sie gelesen sind und ob sie Code sind</translation>
    </message>
    <message>
        <source>--region takes left, top, width and height in pixels, as in 100,80,800,600</source>
        <translation>--region verlangt links, oben, Breite und Höhe in Pixeln, etwa 100,80,800,600</translation>
    </message>
    <message>
        <source>name one picture to read</source>
        <translation>nennen Sie ein Bild, das gelesen werden soll</translation>
    </message>
    <message>
        <source>This language pair isn&apos;t supported.</source>
        <translation>Dieses Sprachpaar wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>No translation was returned.</source>
        <translation>Es kam keine Übersetzung zurück.</translation>
    </message>
    <message>
        <source>Choose a target language.</source>
        <translation>Wählen Sie eine Zielsprache.</translation>
    </message>
    <message>
        <source>Translation session is unavailable.</source>
        <translation>Es ist keine Übersetzung verfügbar.</translation>
    </message>
    <message>
        <source>No screenshot loaded</source>
        <translation>Kein Bild geladen</translation>
    </message>
    <message numerus="yes">
        <source>Found %n blocks of text</source>
        <translation>
            <numerusform>%n Textblock gefunden</numerusform>
            <numerusform>%n Textblöcke gefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Copied all text to clipboard</source>
        <translation>Gesamter Text in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Copied translation to clipboard</source>
        <translation>Übersetzung in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Copied all translations to clipboard</source>
        <translation>Alle Übersetzungen in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>The clipboard took nothing</source>
        <translation>Die Zwischenablage hat nichts angenommen</translation>
    </message>
    <message>
        <source>Scanning text...</source>
        <translation>Text wird erkannt …</translation>
    </message>
    <message>
        <source>Code · %1</source>
        <translation>Code · %1</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Copy this block</source>
        <translation>Diesen Block kopieren</translation>
    </message>
    <message>
        <source>Copy Translation</source>
        <translation>Übersetzung kopieren</translation>
    </message>
    <message>
        <source>Translate Anyway</source>
        <translation>Trotzdem übersetzen</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy All</source>
        <translation>Alles kopieren</translation>
    </message>
    <message>
        <source>Show Results</source>
        <translation>Ergebnisse zeigen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>OCR &amp; Translation</source>
        <translation>Text, Übersetzung</translation>
    </message>
    <message>
        <source>Blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>Full Text</source>
        <translation>Gesamter Text</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Übersetzung</translation>
    </message>
    <message>
        <source>Target language</source>
        <translation>Zielsprache</translation>
    </message>
    <message>
        <source>Choose a target language</source>
        <translation>Zielsprache wählen</translation>
    </message>
    <message>
        <source>Translate All</source>
        <translation>Alles übersetzen</translation>
    </message>
    <message>
        <source>Copy all translations</source>
        <translation>Alle Übersetzungen kopieren</translation>
    </message>
    <message>
        <source>Scanning text... Click to stop.</source>
        <translation>Text wird erkannt … Klicken zum Abbrechen.</translation>
    </message>
    <message>
        <source>Stop reading the text</source>
        <translation>Texterkennung abbrechen</translation>
    </message>
    <message>
        <source>Hide the text</source>
        <translation>Text ausblenden</translation>
    </message>
    <message>
        <source>Read the text of the picture</source>
        <translation>Text des Bildes lesen</translation>
    </message>
    <message>
        <source>Waiting to translate</source>
        <translation>Wartet auf die Übersetzung</translation>
    </message>
    <message>
        <source>Translating…</source>
        <translation>Wird übersetzt …</translation>
    </message>
    <message>
        <source>Translation failed</source>
        <translation>Übersetzung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Code block skipped</source>
        <translation>Codeblock übersprungen</translation>
    </message>
    <message>
        <source>Already in the target language</source>
        <translation>Bereits in der Zielsprache</translation>
    </message>
    <message>
        <source>Loading languages…</source>
        <translation>Sprachen werden geladen …</translation>
    </message>
    <message>
        <source>Translation unavailable</source>
        <translation>Übersetzung nicht verfügbar</translation>
    </message>
    <message>
        <source>Ready to translate</source>
        <translation>Bereit zum Übersetzen</translation>
    </message>
    <message>
        <source>The pattern %1 took too long.</source>
        <translation>Das Muster %1 hat zu lange gebraucht.</translation>
    </message>
    <message>
        <source>cover private data in a picture</source>
        <translation>private Daten in einem Bild abdecken</translation>
    </message>
    <message>
        <source>Finds private data in a picture and writes the picture with it covered.</source>
        <translation>Findet private Daten in einem Bild und schreibt das Bild, in dem sie abgedeckt sind.</translation>
    </message>
    <message>
        <source>solid, pixelate or blur; solid unless given, since text under the others can be reconstructed</source>
        <translation>solid, pixelate oder blur; sonst solid, da sich Text unter den anderen rekonstruieren lässt</translation>
    </message>
    <message>
        <source>what to look for, with commas between: %1; unless given, what the settings have switched on</source>
        <translation>wonach gesucht wird, durch Kommas getrennt: %1; sonst nach allem, was in den Einstellungen eingeschaltet ist</translation>
    </message>
    <message>
        <source>print what is found and write no picture</source>
        <translation>ausgeben, was gefunden wird, und kein Bild schreiben</translation>
    </message>
    <message>
        <source>print what is found as JSON</source>
        <translation>als JSON ausgeben, was gefunden wird</translation>
    </message>
    <message>
        <source>unknown type &quot;%1&quot;; known are %2</source>
        <translation>unbekannter Typ „%1“; bekannt sind %2</translation>
    </message>
    <message>
        <source>give only one of -o and --list</source>
        <translation>geben Sie nur eines von -o und --list an</translation>
    </message>
    <message>
        <source>say where the result goes: -o OUTPUT; or give --list</source>
        <translation>sagen Sie, wohin das Ergebnis soll: -o OUTPUT; oder geben Sie --list an</translation>
    </message>
    <message>
        <source>name one picture to redact</source>
        <translation>nennen Sie ein Bild, in dem etwas abgedeckt werden soll</translation>
    </message>
    <message>
        <source>unknown kind &quot;%1&quot;; known are %2</source>
        <translation>unbekannte Art „%1“; bekannt sind %2</translation>
    </message>
    <message>
        <source>No sensitive information detected</source>
        <translation>Keine sensiblen Daten gefunden</translation>
    </message>
    <message>
        <source>Cover sensitive information with</source>
        <translation>Sensible Daten abdecken mit</translation>
    </message>
    <message>
        <source>Text under a blur or a mosaic can be reconstructed by somebody who tries. Choose Solid for what must stay secret.</source>
        <translation>Text unter Weichzeichner oder Mosaik lässt sich mit etwas Mühe rekonstruieren. Wählen Sie „Einfarbig“ für alles, was geheim bleiben muss.</translation>
    </message>
    <message>
        <source>Nothing of what a solid mark covers is left in the finished picture.</source>
        <translation>Von dem, was eine deckende Fläche verbirgt, bleibt im fertigen Bild nichts übrig.</translation>
    </message>
    <message>
        <source>Look at the picture afterwards: not everything is recognised.</source>
        <translation>Sehen Sie sich das Bild danach an: Nicht alles wird erkannt.</translation>
    </message>
    <message>
        <source>Redact</source>
        <translation>Abdecken</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Suche …</translation>
    </message>
    <message>
        <source>Stop looking for sensitive information</source>
        <translation>Suche nach sensiblen Daten beenden</translation>
    </message>
    <message>
        <source>How sensitive information is covered</source>
        <translation>Wie sensible Daten abgedeckt werden</translation>
    </message>
    <message>
        <source>Redact sensitive information</source>
        <translation>Sensible Daten abdecken</translation>
    </message>
    <message>
        <source>Auto-redact failed: %1</source>
        <translation>Automatisches Abdecken fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Redacted 1 sensitive item</source>
        <translation>1 sensible Stelle abgedeckt</translation>
    </message>
    <message numerus="yes">
        <source>Redacted %n sensitive items</source>
        <translation>
            <numerusform>%n sensible Stelle abgedeckt</numerusform>
            <numerusform>%n sensible Stellen abgedeckt</numerusform>
        </translation>
    </message>
    <message>
        <source>Built-in Patterns</source>
        <translation>Eingebaute Muster</translation>
    </message>
    <message>
        <source>These patterns detect common sensitive information types.</source>
        <translation>Diese Muster erkennen übliche Arten sensibler Daten.</translation>
    </message>
    <message>
        <source>Custom Patterns</source>
        <translation>Eigene Muster</translation>
    </message>
    <message>
        <source>Create your own patterns to detect custom data formats.</source>
        <translation>Legen Sie eigene Muster an, um andere Datenformate zu erkennen.</translation>
    </message>
    <message>
        <source>No custom patterns yet</source>
        <translation>Noch keine eigenen Muster</translation>
    </message>
    <message>
        <source>Click &apos;Add Pattern&apos; to create one</source>
        <translation>Klicken Sie auf „Muster hinzufügen“, um eines anzulegen</translation>
    </message>
    <message>
        <source>Add Pattern</source>
        <translation>Muster hinzufügen</translation>
    </message>
    <message>
        <source>Example Patterns</source>
        <translation>Beispielmuster</translation>
    </message>
    <message>
        <source>Use these as templates for your own patterns.</source>
        <translation>Verwenden Sie diese als Vorlagen für eigene Muster.</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>Edit Pattern</source>
        <translation>Muster bearbeiten</translation>
    </message>
    <message>
        <source>Pattern Name</source>
        <translation>Name des Musters</translation>
    </message>
    <message>
        <source>Regex Pattern</source>
        <translation>Regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Sensitive information</source>
        <translation>Sensible Daten</translation>
    </message>
    <message>
        <source>Auto-blur sensitive info</source>
        <translation>Sensible Daten automatisch abdecken</translation>
    </message>
    <message>
        <source>Looks for it in every picture that opens in the editor and covers it. Look at the result: not everything is recognised, and text under a blur can be reconstructed.</source>
        <translation>Sucht sie in jedem Bild, das sich im Editor öffnet, und deckt sie ab. Sehen Sie sich das Ergebnis an: Nicht alles wird erkannt, und Text unter einem Weichzeichner lässt sich rekonstruieren.</translation>
    </message>
    <message>
        <source>Failed to update pattern: %1</source>
        <translation>Das Muster ließ sich nicht ändern: %1</translation>
    </message>
    <message>
        <source>Please provide a valid and safe regex pattern</source>
        <translation>Bitte geben Sie einen gültigen und sicheren regulären Ausdruck an</translation>
    </message>
    <message>
        <source>Failed to save pattern: %1</source>
        <translation>Das Muster ließ sich nicht sichern: %1</translation>
    </message>
    <message>
        <source>Failed to delete pattern: %1</source>
        <translation>Das Muster ließ sich nicht löschen: %1</translation>
    </message>
    <message>
        <source>Invalid regex pattern</source>
        <translation>Ungültiger regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Pattern is unsafe or too complex</source>
        <translation>Der Ausdruck ist unsicher oder zu verwickelt</translation>
    </message>
    <message>
        <source>Valid regex pattern</source>
        <translation>Gültiger regulärer Ausdruck</translation>
    </message>
    <message>
        <source>Translation complete</source>
        <translation>Übersetzung abgeschlossen</translation>
    </message>
    <message>
        <source>open the picture in the editor and read its text</source>
        <translation>das Bild im Editor öffnen und seinen Text lesen</translation>
    </message>
    <message>
        <source>choose one of --edit, --copy, --pin, --ocr and --save</source>
        <translation>wählen Sie eines von --edit, --copy, --pin, --ocr und --save</translation>
    </message>
    <message>
        <source>Read the text</source>
        <translation>Text lesen</translation>
    </message>
    <message>
        <source>Drag over the text to read</source>
        <translation>Ziehen Sie über den Text, der gelesen werden soll</translation>
    </message>
    <message>
        <source>Choose no part of the text</source>
        <translation>Keinen Teil des Textes wählen</translation>
    </message>
    <message>
        <source>Read the text of a part</source>
        <translation>Text eines Teils lesen</translation>
    </message>
</context>
</TS>
