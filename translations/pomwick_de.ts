<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ProgramOptions</name>
    <message>
        <source>the device root</source>
        <translation>das Gerätestammverzeichnis</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>show this help</source>
        <translation>diese Hilfe anzeigen</translation>
    </message>
    <message>
        <source>show the version</source>
        <translation>die Version anzeigen</translation>
    </message>
    <message>
        <source>unknown option &apos;%1%2&apos;</source>
        <translation>unbekannte Option „%1%2“</translation>
    </message>
    <message>
        <source>%1 needs a %2</source>
        <translation>%1 braucht einen Wert: %2</translation>
    </message>
    <message>
        <source>--root needs a folder</source>
        <translation>--root braucht einen Ordner</translation>
    </message>
    <message>
        <source>%1: %2 (see &apos;%1 --help&apos;)
</source>
        <translation>%1: %2 (siehe „%1 --help“)
</translation>
    </message>
    <message>
        <source>
The device root is --root DIR, else $POMWICK_ROOT, else %1.
</source>
        <translation>
Das Gerätestammverzeichnis ist --root ORDNER, sonst $POMWICK_ROOT, sonst %1.
</translation>
    </message>
    <message>
        <source>(none: no home folder)</source>
        <translation>(keins: kein Home-Ordner)</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The settings window of Pomwick, with its live badge preview. One window per device root: a second start brings the open one forward.</source>
        <translation>Das Einstellungsfenster von Pomwick mit der Live-Vorschau des Kennzeichens. Ein Fenster je Gerätestammverzeichnis: Ein zweiter Start holt das offene Fenster nach vorn.</translation>
    </message>
    <message>
        <source>stay on the list of bundles</source>
        <translation>bei der Liste der Bundles bleiben</translation>
    </message>
    <message>
        <source>load the bundle, open its page, exit 0 (or 1 when it fails)</source>
        <translation>das Bundle laden, seine Seite öffnen, mit 0 beenden (oder 1 bei einem Fehler)</translation>
    </message>
    <message>
        <source>unexpected argument &apos;%1&apos;</source>
        <translation>unerwartetes Argument „%1“</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>%1 is not a preference bundle</source>
        <translation>%1 ist kein Einstellungs-Bundle</translation>
    </message>
    <message>
        <source>The home-screen side of Pomwick&apos;s preview: serves com.velquor.pomwick on the session bus and draws the badge background on &quot;saveBadgeImages&quot;. The bus starts it on demand.</source>
        <translation>Die Startbildschirm-Seite der Vorschau von Pomwick: bedient com.velquor.pomwick auf dem Sitzungsbus und zeichnet bei „saveBadgeImages“ den Hintergrund des Kennzeichens. Der Bus startet den Renderer bei Bedarf.</translation>
    </message>
    <message>
        <source>the icon side in points it reports (60)</source>
        <translation>die Seitenlänge des Symbols in Punkten, die er meldet (60)</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>--icon-size needs a number of points between 0 and 1024, not &apos;%1&apos;</source>
        <translation>--icon-size braucht eine Punktzahl zwischen 0 und 1024, nicht „%1“</translation>
    </message>
</context>
<context>
    <name>pomwick::ActivityIndicatorView</name>
    <message>
        <source>In progress</source>
        <translation>In Arbeit</translation>
    </message>
</context>
<context>
    <name>pomwick::BadgePositionViewController</name>
    <message>
        <source>Set Position</source>
        <translation>Position festlegen</translation>
    </message>
    <message>
        <source>Drag the badge, or move it with the arrow keys.</source>
        <translation>Ziehe das Kennzeichen oder bewege es mit den Pfeiltasten.</translation>
    </message>
    <message>
        <source>Icon area</source>
        <translation>Symbolbereich</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>Kennzeichen</translation>
    </message>
    <message>
        <source>Drag the badge bubble 
to your desired location.</source>
        <translation>Ziehe das Kennzeichen 
an die gewünschte Stelle.</translation>
    </message>
</context>
<context>
    <name>pomwick::ColorDescription</name>
    <message>
        <source>red %1 green %2 blue %3</source>
        <translation>Rot %1 Grün %2 Blau %3</translation>
    </message>
</context>
<context>
    <name>pomwick::DQFontPicker</name>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
</context>
<context>
    <name>pomwick::FeedbackMailComposer</name>
    <message>
        <source>Mail</source>
        <translation>Mail</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>Neue E-Mail</translation>
    </message>
    <message>
        <source>Sending</source>
        <translation>Wird gesendet</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>An:</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Betreff:</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Not a valid address</source>
        <translation>Keine gültige Adresse</translation>
    </message>
    <message>
        <source>%1; the message was kept in %2</source>
        <translation>%1; die Nachricht wurde in %2 aufbewahrt</translation>
    </message>
    <message>
        <source>%1; the message could not be kept: %2</source>
        <translation>%1; die Nachricht konnte nicht aufbewahrt werden: %2</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>Save Draft</source>
        <translation>Entwurf sichern</translation>
    </message>
    <message>
        <source>Delete Draft</source>
        <translation>Entwurf löschen</translation>
    </message>
    <message>
        <source>Draft saved to %1</source>
        <translation>Entwurf gesichert in %1</translation>
    </message>
</context>
<context>
    <name>pomwick::FeedbackMailFlow</name>
    <message>
        <source>Oops!</source>
        <translation>Hoppla!</translation>
    </message>
    <message>
        <source>Your device cannot send emails!</source>
        <translation>Dein Gerät kann keine E-Mails senden!</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>My Feedback - Pomwick</source>
        <translation>Mein Feedback – Pomwick</translation>
    </message>
    <message>
        <source>Sent from Pomwick Tweak</source>
        <translation>Gesendet von Pomwick Tweak</translation>
    </message>
    <message>
        <source>Message Saved!</source>
        <translation>Nachricht gesichert!</translation>
    </message>
    <message>
        <source>Message Sent!</source>
        <translation>Nachricht gesendet!</translation>
    </message>
    <message>
        <source>An Error Occurred!</source>
        <translation>Ein Fehler ist aufgetreten!</translation>
    </message>
</context>
<context>
    <name>pomwick::FontPickerSheet</name>
    <message>
        <source>Close font sheet</source>
        <translation>Schriftauswahl schließen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
</context>
<context>
    <name>pomwick::MailDrafts</name>
    <message>
        <source>cannot create %1</source>
        <translation>%1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1 is not a folder of this user</source>
        <translation>%1 ist kein Ordner dieses Benutzers</translation>
    </message>
    <message>
        <source>cannot make %1 private</source>
        <translation>%1 kann nicht privat gemacht werden</translation>
    </message>
    <message>
        <source>cannot write the draft %1: %2</source>
        <translation>der Entwurf %1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>pomwick::PomwickPreferencesViewController</name>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Widerrufen</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Defaults restored</source>
        <translation>Standardwerte wiederhergestellt</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Respringing…</source>
        <translation>Respring läuft …</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Standardwerte wiederherstellen</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Hide/Show</source>
        <translation>Ausblenden/Einblenden</translation>
    </message>
    <message>
        <source>Alpha: %1%</source>
        <translation>Deckkraft: %1 %</translation>
    </message>
    <message>
        <source>Border Width</source>
        <translation>Randbreite</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Tipp</translation>
    </message>
    <message>
        <source>Substitute the &quot;@&quot; symbol for the badge number. For example, typing the text &quot;Alert:@&quot; will display &quot;Alert:1&quot; if the badge number is 1.</source>
        <translation>Das Zeichen „@“ steht für die Zahl im Kennzeichen. Gibst du zum Beispiel „Alert:@“ ein, erscheint „Alert:1“, wenn die Zahl 1 ist.</translation>
    </message>
    <message>
        <source>Badge Text</source>
        <translation>Kennzeichentext</translation>
    </message>
    <message>
        <source>Respring</source>
        <translation>Respring</translation>
    </message>
</context>
<context>
    <name>pomwick::PreferencesRows</name>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>Kennzeichen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Contact Us / Donate</source>
        <translation>Kontakt / Spenden</translation>
    </message>
    <message>
        <source>Crafted with care by the Pomwick developers, 2026
Pomwick v%1</source>
        <translation>Mit Sorgfalt erstellt vom Pomwick-Team, 2026
Pomwick v%1</translation>
    </message>
    <message>
        <source>Font: %1</source>
        <translation>Schrift: %1</translation>
    </message>
    <message>
        <source>Background Color:</source>
        <translation>Hintergrundfarbe:</translation>
    </message>
    <message>
        <source>Position: %1%, %2%</source>
        <translation>Position: %1 %, %2 %</translation>
    </message>
    <message>
        <source>Border Color:</source>
        <translation>Randfarbe:</translation>
    </message>
    <message>
        <source>Border Width:</source>
        <translation>Randbreite:</translation>
    </message>
    <message>
        <source>Alpha: %1%</source>
        <translation>Deckkraft: %1 %</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Standardwerte wiederherstellen</translation>
    </message>
    <message>
        <source>Contact Us</source>
        <translation>Kontakt</translation>
    </message>
    <message>
        <source>Follow on Twitter</source>
        <translation>Auf Twitter folgen</translation>
    </message>
    <message>
        <source>View My Other Tweaks</source>
        <translation>Meine anderen Tweaks</translation>
    </message>
    <message>
        <source>Donate</source>
        <translation>Spenden</translation>
    </message>
    <message>
        <source>Enabled:</source>
        <translation>Aktiviert:</translation>
    </message>
    <message>
        <source>Visibility:</source>
        <translation>Sichtbarkeit:</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>Sichtbarkeit</translation>
    </message>
    <message>
        <source>Text:</source>
        <translation>Text:</translation>
    </message>
    <message>
        <source>Badge Text</source>
        <translation>Kennzeichentext</translation>
    </message>
    <message>
        <source>Badge text</source>
        <translation>Kennzeichentext</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>Tipp</translation>
    </message>
</context>
<context>
    <name>pomwick::PreviewHeader</name>
    <message>
        <source>Badge Preview</source>
        <translation>Kennzeichen-Vorschau</translation>
    </message>
    <message>
        <source>Badge preview: a sample icon without a badge</source>
        <translation>Kennzeichen-Vorschau: ein Beispielsymbol ohne Kennzeichen</translation>
    </message>
    <message>
        <source>Badge preview: %1 on a sample icon</source>
        <translation>Kennzeichen-Vorschau: %1 auf einem Beispielsymbol</translation>
    </message>
    <message>
        <source>Preview unavailable — the badge renderer is not running. Respring to start it.</source>
        <translation>Vorschau nicht verfügbar – der Kennzeichen-Renderer läuft nicht. Ein Respring startet ihn.</translation>
    </message>
</context>
<context>
    <name>pomwick::ProgressIndicatorView</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>pomwick::RowEditors</name>
    <message>
        <source>Background colors</source>
        <translation>Hintergrundfarben</translation>
    </message>
    <message>
        <source>Border colors</source>
        <translation>Randfarben</translation>
    </message>
    <message>
        <source>Select Color</source>
        <translation>Farbe auswählen</translation>
    </message>
</context>
<context>
    <name>pomwick::SendmailDelivery</name>
    <message>
        <source>sendmail did not finish in time</source>
        <translation>sendmail wurde nicht rechtzeitig fertig</translation>
    </message>
    <message>
        <source>sendmail stopped: %1</source>
        <translation>sendmail wurde abgebrochen: %1</translation>
    </message>
    <message>
        <source>sendmail exited with status %1</source>
        <translation>sendmail endete mit Status %1</translation>
    </message>
    <message>
        <source>sendmail could not start: %1</source>
        <translation>sendmail konnte nicht starten: %1</translation>
    </message>
    <message>
        <source>no sendmail program is installed</source>
        <translation>kein sendmail-Programm installiert</translation>
    </message>
</context>
<context>
    <name>pomwick::SettingsHistory</name>
    <message>
        <source>Change by another program</source>
        <translation>Änderung durch ein anderes Programm</translation>
    </message>
</context>
<context>
    <name>pomwick::SettingsListController</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>The settings bundle could not be loaded:
%1</source>
        <translation>Das Einstellungs-Bundle konnte nicht geladen werden:
%1</translation>
    </message>
    <message>
        <source>Tweaks</source>
        <translation>Tweaks</translation>
    </message>
</context>
<context>
    <name>pomwick::Switch</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
</context>
<context>
    <name>pomwick::UndoNotice</name>
    <message>
        <source>Undo</source>
        <translation>Widerrufen</translation>
    </message>
</context>
</TS>
