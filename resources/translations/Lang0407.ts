<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Words</name>
    <message>
        <source>Tarnbridge</source>
        <comment>ProgramName</comment>
        <translation>Tarnbridge</translation>
    </message>
    <message>
        <source>Connected!</source>
        <comment>Connected</comment>
        <translation>Verbunden!</translation>
    </message>
    <message>
        <source>Disconnected!</source>
        <comment>Disconnected</comment>
        <translation>Getrennt!</translation>
    </message>
    <message>
        <source>Fail to get the ini file.</source>
        <comment>IniFileMissing</comment>
        <translation>Die Datei mit den Netzbetreibern wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Ole Initialization Failed</source>
        <comment>OleFailed</comment>
        <translation>OLE konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Fail to load EMS library!</source>
        <comment>EmsLibraryFailed</comment>
        <translation>Die EMS-Bibliothek konnte nicht geladen werden!</translation>
    </message>
    <message>
        <source>Fail to start the background thread!</source>
        <comment>BackgroundThreadFailed</comment>
        <translation>Der Hintergrundprozess konnte nicht gestartet werden!</translation>
    </message>
    <message>
        <source>Fail to save user data. Please make sure that you have rights to modify the folder which this execution file exits in.</source>
        <comment>ProfileNotSaved</comment>
        <translation>Ihre Daten konnten nicht gespeichert werden. Bitte prüfen Sie, ob Sie in den Ordner des Programms schreiben dürfen.</translation>
    </message>
    <message>
        <source>Do you want to restart this application currently?
Press 'Yes' to restart right now.
Press 'No' to restart later manually.</source>
        <comment>RestartNow</comment>
        <translation>Möchten Sie das Programm jetzt neu starten?
„Ja“ startet es sofort neu.
Bei „Nein“ starten Sie es später selbst neu.</translation>
    </message>
    <message>
        <source>New Folder</source>
        <comment>NewFolder</comment>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>%d / %d</source>
        <comment>ProgressOf</comment>
        <translation>%d / %d</translation>
    </message>
    <message>
        <source>Error</source>
        <comment>ErrorTitle</comment>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Yes</source>
        <comment>Yes</comment>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <comment>No</comment>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Cancel</source>
        <comment>Cancel</comment>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Yes to all</source>
        <comment>YesToAll</comment>
        <translation>Ja, alle</translation>
    </message>
    <message>
        <source>No to all</source>
        <comment>NoToAll</comment>
        <translation>Nein, keine</translation>
    </message>
    <message>
        <source>SIM</source>
        <comment>MemorySim</comment>
        <translation>SIM</translation>
    </message>
    <message>
        <source>Phone</source>
        <comment>MemoryPhone</comment>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>PC</source>
        <comment>MemoryPc</comment>
        <translation>PC</translation>
    </message>
    <message>
        <source>Your messages and contacts are in use by another program. Please end it and start Tarnbridge again.</source>
        <comment>ProfileInUse</comment>
        <translation>Ihre Nachrichten und Kontakte werden gerade von einem anderen Programm benutzt. Bitte beenden Sie es und starten Sie Tarnbridge noch einmal.</translation>
    </message>
    <message>
        <source>The file with your messages and contacts could not be read to its end. It was kept as:
%s</source>
        <comment>ProfileCopiedAside</comment>
        <translation>Die Datei mit Ihren Nachrichten und Kontakten war nicht vollständig lesbar. Sie wurde aufbewahrt als:
%s</translation>
    </message>
    <message>
        <source>The file with your messages and contacts isn't the one that was saved last. What is in it is shown, and it was kept as:
%s</source>
        <comment>ProfileAltered</comment>
        <translation>Die Datei mit Ihren Nachrichten und Kontakten ist nicht die zuletzt gespeicherte. Ihr Inhalt wird gezeigt, und sie wurde aufbewahrt als:
%s</translation>
    </message>
    <message>
        <source>Tarnbridge could not be started again. Please end it and start it yourself.</source>
        <comment>RestartFailed</comment>
        <translation>Tarnbridge konnte nicht neu gestartet werden. Bitte beenden Sie es und starten Sie es selbst.</translation>
    </message>
    <message>
        <source>OK</source>
        <comment>Ok</comment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <comment>Cancelling</comment>
        <translation>Wird abgebrochen …</translation>
    </message>
    <message>
        <source>"%s" is there already. Do you want to replace it?</source>
        <comment>ReplaceFile</comment>
        <translation>„%s“ gibt es schon. Soll die Datei ersetzt werden?</translation>
    </message>
    <message>
        <source>What is in it now can't be brought back.</source>
        <comment>ReplaceEffect</comment>
        <translation>Was jetzt darin steht, lässt sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>Replace</source>
        <comment>AnswerReplace</comment>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>&amp;Memory:</source>
        <comment>MemoryLabel</comment>
        <translation>&amp;Speicher:</translation>
    </message>
    <message>
        <source>Phonebook</source>
        <comment>FeaturePhonebook</comment>
        <translation>Telefonbuch</translation>
    </message>
    <message>
        <source>Messages</source>
        <comment>FeatureMessages</comment>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Settings</source>
        <comment>FeatureSettings</comment>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Images</source>
        <comment>FeatureImages</comment>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Melodies</source>
        <comment>FeatureMelodies</comment>
        <translation>Melodien</translation>
    </message>
    <message>
        <source>MMS</source>
        <comment>FeatureMms</comment>
        <translation>MMS</translation>
    </message>
    <message>
        <source>File manager</source>
        <comment>FeatureFiles</comment>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Features</source>
        <comment>FeaturesName</comment>
        <translation>Bereiche</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <comment>ToolbarName</comment>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Connection</source>
        <comment>ConnectionName</comment>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <comment>MenuFile</comment>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <comment>MenuView</comment>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <comment>MenuSettings</comment>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>MenuHelp</comment>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <comment>CommandQuit</comment>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <comment>CommandHelp</comment>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;About Tarnbridge</source>
        <comment>CommandAbout</comment>
        <translation>&amp;Über Tarnbridge</translation>
    </message>
    <message>
        <source>Close</source>
        <comment>CommandClose</comment>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Back</source>
        <comment>CommandBack</comment>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Contents</source>
        <comment>CommandContents</comment>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Go to the features</source>
        <comment>CommandFeatures</comment>
        <translation>Zu den Bereichen</translation>
    </message>
    <message>
        <source>Go to the contents of the window</source>
        <comment>CommandForm</comment>
        <translation>Zum Inhalt des Fensters</translation>
    </message>
    <message>
        <source>Help</source>
        <comment>HelpTitle</comment>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>The help page is missing. Please install the program again.</source>
        <comment>HelpMissing</comment>
        <translation>Die Hilfeseite fehlt. Bitte installieren Sie das Programm neu.</translation>
    </message>
    <message>
        <source>About Tarnbridge</source>
        <comment>AboutTitle</comment>
        <translation>Über Tarnbridge</translation>
    </message>
    <message>
        <source>Version %s</source>
        <comment>AboutVersion</comment>
        <translation>Version %s</translation>
    </message>
    <message>
        <source>A desktop companion for phones that speak AT commands.</source>
        <comment>AboutPurpose</comment>
        <translation>Der Begleiter am PC für Telefone, die AT-Befehle sprechen.</translation>
    </message>
    <message>
        <source>Built with</source>
        <comment>AboutBuiltWith</comment>
        <translation>Erstellt mit</translation>
    </message>
    <message>
        <source>Licence</source>
        <comment>AboutLicence</comment>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Your messages</source>
        <comment>MessagesPlaceTitle</comment>
        <translation>Ihre Nachrichten</translation>
    </message>
    <message>
        <source>Messages of the phone and of this computer are shown here.</source>
        <comment>MessagesPlaceHint</comment>
        <translation>Hier stehen die Nachrichten des Telefons und die auf diesem Computer.</translation>
    </message>
    <message>
        <source>General</source>
        <comment>SettingsGeneral</comment>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Messages</source>
        <comment>SettingsMessages</comment>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Phone</source>
        <comment>SettingsPhoneGroup</comment>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <comment>SettingsPort</comment>
        <translation>A&amp;nschluss:</translation>
    </message>
    <message>
        <source>The port that the phone is plugged into. The list follows what is plugged in.</source>
        <comment>SettingsPortTip</comment>
        <translation>Der Anschluss, an dem das Telefon steckt. Die Liste folgt dem, was eingesteckt ist.</translation>
    </message>
    <message>
        <source>%s - not plugged in</source>
        <comment>SettingsPortAway</comment>
        <translation>%s – nicht eingesteckt</translation>
    </message>
    <message>
        <source>&amp;Other device...</source>
        <comment>SettingsAddPort</comment>
        <translation>Anderes &amp;Gerät …</translation>
    </message>
    <message>
        <source>Path of the device, such as /dev/ttyUSB0 or /dev/rfcomm0:</source>
        <comment>SettingsDeviceQuestion</comment>
        <translation>Pfad des Geräts, etwa /dev/ttyUSB0 oder /dev/rfcomm0:</translation>
    </message>
    <message>
        <source>There is no device of this name: %s</source>
        <comment>SettingsDeviceBad</comment>
        <translation>Ein Gerät dieses Namens gibt es nicht: %s</translation>
    </message>
    <message>
        <source>Look for ports</source>
        <comment>SettingsRefresh</comment>
        <translation>Anschlüsse suchen</translation>
    </message>
    <message>
        <source>Phone &amp;model:</source>
        <comment>SettingsModel</comment>
        <translation>&amp;Telefonmodell:</translation>
    </message>
    <message>
        <source>%d baud, %s, screen %d x %d</source>
        <comment>SettingsModelFacts</comment>
        <translation>%d Baud, %s, Bildschirm %d × %d</translation>
    </message>
    <message>
        <source>no flow control</source>
        <comment>FlowNone</comment>
        <translation>ohne Flusssteuerung</translation>
    </message>
    <message>
        <source>hardware flow control</source>
        <comment>FlowHardware</comment>
        <translation>Flusssteuerung durch Hardware</translation>
    </message>
    <message>
        <source>software flow control</source>
        <comment>FlowSoftware</comment>
        <translation>Flusssteuerung durch Software</translation>
    </message>
    <message>
        <source>State:</source>
        <comment>SettingsState</comment>
        <translation>Zustand:</translation>
    </message>
    <message>
        <source>No phone is plugged in at this port.</source>
        <comment>PortMissing</comment>
        <translation>An diesem Anschluss ist kein Telefon eingesteckt.</translation>
    </message>
    <message>
        <source>You may not open %s. It belongs to the group %s: join it with "sudo usermod -aG %s $USER" and log in again.</source>
        <comment>PortNoRights</comment>
        <translation>Sie dürfen %s nicht öffnen. Es gehört der Gruppe %s: Treten Sie ihr bei mit „sudo usermod -aG %s $USER“ und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>%s is in use by another program.</source>
        <comment>PortInUse</comment>
        <translation>%s wird von einem anderen Programm benutzt.</translation>
    </message>
    <message>
        <source>%s is in use by %s.</source>
        <comment>PortInUseBy</comment>
        <translation>%s wird von %s benutzt.</translation>
    </message>
    <message>
        <source>%s is in use. The modem manager looks at new ports for some ten seconds; please wait.</source>
        <comment>PortProbed</comment>
        <translation>%s wird benutzt. Der Modem-Manager prüft neue Anschlüsse etwa zehn Sekunden lang; bitte warten Sie.</translation>
    </message>
    <message>
        <source>%s isn't a serial port.</source>
        <comment>PortNotSerial</comment>
        <translation>%s ist keine serielle Schnittstelle.</translation>
    </message>
    <message>
        <source>%s can't be set to the speed of this phone model.</source>
        <comment>PortRate</comment>
        <translation>%s kann nicht auf die Geschwindigkeit dieses Modells gestellt werden.</translation>
    </message>
    <message>
        <source>The port is open, but the phone doesn't answer yet.</source>
        <comment>PortSilent</comment>
        <translation>Der Anschluss ist offen, aber das Telefon antwortet noch nicht.</translation>
    </message>
    <message>
        <source>Program</source>
        <comment>SettingsProgramGroup</comment>
        <translation>Programm</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <comment>SettingsLanguage</comment>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>The language of the program, from its next start on.</source>
        <comment>SettingsLanguageTip</comment>
        <translation>Die Sprache des Programms ab dem nächsten Start.</translation>
    </message>
    <message>
        <source>Long SMS</source>
        <comment>SettingsLongSms</comment>
        <translation>Lange SMS</translation>
    </message>
    <message>
        <source>&amp;Activate</source>
        <comment>SettingsActivate</comment>
        <translation>E&amp;in</translation>
    </message>
    <message>
        <source>&amp;Deactivate</source>
        <comment>SettingsDeactivate</comment>
        <translation>Au&amp;s</translation>
    </message>
    <message>
        <source>A long text goes out as up to 10 messages that the receiver's phone joins. Each is paid for.</source>
        <comment>SettingsLongSmsHint</comment>
        <translation>Ein langer Text geht in bis zu 10 Nachrichten hinaus, die das Telefon des Empfängers zusammenfügt. Jede kostet.</translation>
    </message>
    <message>
        <source>Character Encoding</source>
        <comment>SettingsEncoding</comment>
        <translation>Zeichencodierung</translation>
    </message>
    <message>
        <source>&amp;7bit</source>
        <comment>SettingsSevenBit</comment>
        <translation>&amp;7 Bit</translation>
    </message>
    <message>
        <source>A&amp;utomatic</source>
        <comment>SettingsAutomatic</comment>
        <translation>A&amp;utomatisch</translation>
    </message>
    <message>
        <source>7bit keeps 160 characters a message. Automatic also sends all other scripts, with 70 characters a message.</source>
        <comment>SettingsEncodingHint</comment>
        <translation>Mit 7 Bit fassen Nachrichten 160 Zeichen. Automatisch sendet auch alle anderen Schriften, mit 70 Zeichen je Nachricht.</translation>
    </message>
    <message>
        <source>A&amp;sk before messages and folders go to the Trash Can</source>
        <comment>SettingsAskTrash</comment>
        <translation>&amp;Fragen, bevor Nachrichten und Ordner in den Papierkorb kommen</translation>
    </message>
    <message>
        <source>Preferred memory</source>
        <comment>SettingsMemory</comment>
        <translation>Bevorzugter Speicher</translation>
    </message>
    <message>
        <source>Where messages are kept when they are saved to the phone.</source>
        <comment>SettingsMemoryHint</comment>
        <translation>Wo Nachrichten liegen, die auf dem Telefon gespeichert werden.</translation>
    </message>
    <message>
        <source>Handset Folder</source>
        <comment>MessageHandsetFolder</comment>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>PC Folder</source>
        <comment>MessagePcFolder</comment>
        <translation>PC</translation>
    </message>
    <message>
        <source>Inbox</source>
        <comment>Inbox</comment>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Outbox</source>
        <comment>Outbox</comment>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Sent Message</source>
        <comment>SentMessage</comment>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>Draft</source>
        <comment>Draft</comment>
        <translation>Entwürfe</translation>
    </message>
    <message>
        <source>Personal Folder</source>
        <comment>PersonalFolder</comment>
        <translation>Persönlich</translation>
    </message>
    <message>
        <source>Trash Can</source>
        <comment>MessageTrashCan</comment>
        <translation>Papierkorb</translation>
    </message>
    <message>
        <source>Reading messages...</source>
        <comment>ReadingMessages</comment>
        <translation>Nachrichten werden gelesen …</translation>
    </message>
    <message>
        <source>Reading message...</source>
        <comment>ReadingMessage</comment>
        <translation>Nachricht wird gelesen …</translation>
    </message>
    <message>
        <source>Reading messages from %s</source>
        <comment>ReadingMessagesFrom</comment>
        <translation>Nachrichten werden gelesen: %s</translation>
    </message>
    <message>
        <source>Copying messages...</source>
        <comment>CopyingMessages</comment>
        <translation>Nachrichten werden kopiert …</translation>
    </message>
    <message>
        <source>Deleting messages...</source>
        <comment>DeletingMessages</comment>
        <translation>Nachrichten werden gelöscht …</translation>
    </message>
    <message>
        <source>There is no available message in handset!</source>
        <comment>NoMessageInHandset</comment>
        <translation>Auf dem Telefon ist keine Nachricht!</translation>
    </message>
    <message>
        <source>Fail to delete message from handset!</source>
        <comment>MessageNotDeleted</comment>
        <translation>Die Nachricht konnte nicht vom Telefon gelöscht werden!</translation>
    </message>
    <message>
        <source>Fail to update message from handset!</source>
        <comment>MessageNotUpdated</comment>
        <translation>Die Nachricht konnte auf dem Telefon nicht geändert werden!</translation>
    </message>
    <message>
        <source>Fail to write message to handset!</source>
        <comment>MessageNotWritten</comment>
        <translation>Die Nachricht konnte nicht auf das Telefon geschrieben werden!</translation>
    </message>
    <message>
        <source>Can't move the message(s) to the same folder!</source>
        <comment>MoveToSameFolder</comment>
        <translation>Die Nachrichten sind schon in diesem Ordner!</translation>
    </message>
    <message>
        <source>Do you want to delete the message(s)?</source>
        <comment>DeleteMessages</comment>
        <translation>Möchten Sie die Nachrichten löschen?</translation>
    </message>
    <message>
        <source>1 message on the phone. It can't be brought back.</source>
        <comment>OneGoneFromPhone</comment>
        <translation>1 Nachricht auf dem Telefon. Sie lässt sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>%d messages on the phone. They can't be brought back.</source>
        <comment>SeveralGoneFromPhone</comment>
        <translation>%d Nachrichten auf dem Telefon. Sie lassen sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>Tarnbridge can't read it; the phone may be able to.</source>
        <comment>UnreadableGoes</comment>
        <translation>Tarnbridge kann sie nicht lesen; das Telefon kann es vielleicht.</translation>
    </message>
    <message>
        <source>Messages that can't be read and stay: %d. Delete them one at a time.</source>
        <comment>UnreadableStay</comment>
        <translation>Unlesbare Nachrichten, die bleiben: %d. Bitte einzeln löschen.</translation>
    </message>
    <message>
        <source>Messages that can't be read are deleted one at a time.</source>
        <comment>UnreadableGoAlone</comment>
        <translation>Unlesbare Nachrichten werden einzeln gelöscht.</translation>
    </message>
    <message>
        <source>1 message in the Trash Can. It can't be brought back.</source>
        <comment>OneGoneFromTrash</comment>
        <translation>1 Nachricht im Papierkorb. Sie lässt sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>%d messages in the Trash Can. They can't be brought back.</source>
        <comment>SeveralGoneFromTrash</comment>
        <translation>%d Nachrichten im Papierkorb. Sie lassen sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>1 message goes to the Trash Can.</source>
        <comment>OneToTrash</comment>
        <translation>1 Nachricht kommt in den Papierkorb.</translation>
    </message>
    <message>
        <source>%d messages go to the Trash Can.</source>
        <comment>SeveralToTrash</comment>
        <translation>%d Nachrichten kommen in den Papierkorb.</translation>
    </message>
    <message>
        <source>Do you want to move this folder to</source>
        <comment>MoveFolderTo</comment>
        <translation>Möchten Sie diesen Ordner verschieben nach</translation>
    </message>
    <message>
        <source>"%s" and all that is in it. Messages: %d.</source>
        <comment>FolderGoes</comment>
        <translation>„%s“ mit allem, was darin ist. Nachrichten: %d.</translation>
    </message>
    <message>
        <source>"%s" and all that is in it. Messages: %d. They can't be brought back.</source>
        <comment>FolderGone</comment>
        <translation>„%s“ mit allem, was darin ist. Nachrichten: %d. Sie lassen sich nicht zurückholen.</translation>
    </message>
    <message>
        <source>Delete</source>
        <comment>AnswerDelete</comment>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Move to Trash Can</source>
        <comment>AnswerToTrash</comment>
        <translation>In den Papierkorb</translation>
    </message>
    <message>
        <source>Do you want to download the messages from handset ?</source>
        <comment>DownloadMessages</comment>
        <translation>Möchten Sie die Nachrichten vom Telefon laden?</translation>
    </message>
    <message>
        <source>The list of the phone's messages is made anew. The phone counts unread ones as read afterwards.</source>
        <comment>ReadingEffect</comment>
        <translation>Die Liste der Nachrichten des Telefons wird neu angelegt. Ungelesene gelten dem Telefon danach als gelesen.</translation>
    </message>
    <message>
        <source>Read</source>
        <comment>AnswerRead</comment>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Failed to create new folder!</source>
        <comment>FolderNotCreated</comment>
        <translation>Der Ordner konnte nicht angelegt werden!</translation>
    </message>
    <message>
        <source>Failed to create new message!</source>
        <comment>MessageNotCreated</comment>
        <translation>Die Nachricht konnte nicht angelegt werden!</translation>
    </message>
    <message>
        <source>Please choose one folder to save!</source>
        <comment>ChooseFolderToSave</comment>
        <translation>Bitte wählen Sie einen Ordner zum Speichern!</translation>
    </message>
    <message>
        <source>Fail to save the message!</source>
        <comment>MessageNotSaved</comment>
        <translation>Die Nachricht konnte nicht gespeichert werden!</translation>
    </message>
    <message>
        <source>The recepient address's length is larger than 4096 characters</source>
        <comment>RecipientsTextTooLong</comment>
        <translation>Die Empfänger sind länger als 4096 Zeichen.</translation>
    </message>
    <message>
        <source>The total number of contacts character pass 256, please delete some contacts to continue send!</source>
        <comment>TooManyRecipientCharacters</comment>
        <translation>Die Empfänger sind länger als 256 Zeichen. Bitte entfernen Sie einige, um zu senden!</translation>
    </message>
    <message>
        <source>It can not send more than 1200 messages one time!</source>
        <comment>TooManyMessages</comment>
        <translation>Auf einmal lassen sich höchstens 1200 Nachrichten senden!</translation>
    </message>
    <message>
        <source>Invalid phone number!</source>
        <comment>InvalidPhoneNumber</comment>
        <translation>Ungültige Telefonnummer!</translation>
    </message>
    <message>
        <source>This is an invalid recipient!</source>
        <comment>InvalidRecipient</comment>
        <translation>Diesen Empfänger gibt es nicht!</translation>
    </message>
    <message>
        <source>There is no recipient in the sending messages!</source>
        <comment>NoRecipient</comment>
        <translation>Eine der Nachrichten hat keinen Empfänger!</translation>
    </message>
    <message>
        <source>Without a recipient the message can be kept on the PC only.</source>
        <comment>NoRecipientForPhone</comment>
        <translation>Ohne Empfänger kann die Nachricht nur auf dem PC aufbewahrt werden.</translation>
    </message>
    <message>
        <source>Do you want to save the message?</source>
        <comment>SaveMessage</comment>
        <translation>Möchten Sie die Nachricht speichern?</translation>
    </message>
    <message>
        <source>What isn't saved is lost.</source>
        <comment>UnsavedIsLost</comment>
        <translation>Was nicht gespeichert wird, geht verloren.</translation>
    </message>
    <message>
        <source>Save</source>
        <comment>AnswerSave</comment>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Don't save</source>
        <comment>AnswerDontSave</comment>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>Do you want to send the messages?</source>
        <comment>SendSeveral</comment>
        <translation>Sollen die Nachrichten gesendet werden?</translation>
    </message>
    <message>
        <source>Messages: %d. Recipients in all: %d. What has been sent can't be taken back.</source>
        <comment>SendingEffect</comment>
        <translation>Nachrichten: %d. Empfänger insgesamt: %d. Gesendetes lässt sich nicht zurücknehmen.</translation>
    </message>
    <message>
        <source>Messages that were received, which aren't sent: %d. They can be forwarded.</source>
        <comment>ReceivedNotSent</comment>
        <translation>Empfangene Nachrichten, die nicht gesendet werden: %d. Sie lassen sich weiterleiten.</translation>
    </message>
    <message>
        <source>Only messages that were written, not received, can be sent. Received ones can be forwarded.</source>
        <comment>OnlyReceived</comment>
        <translation>Nur geschriebene, nicht empfangene Nachrichten lassen sich senden. Empfangene lassen sich weiterleiten.</translation>
    </message>
    <message>
        <source>Send</source>
        <comment>AnswerSend</comment>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Do you want to send all messages in PC Outbox ?</source>
        <comment>SendAllOutbox</comment>
        <translation>Möchten Sie alle Nachrichten im Ausgang des PCs senden?</translation>
    </message>
    <message>
        <source>Sending messages...</source>
        <comment>SendingMessages</comment>
        <translation>Nachrichten werden gesendet …</translation>
    </message>
    <message>
        <source>The handset can't store messages in its Inbox. They lie in its Draft folder.</source>
        <comment>StoredAsDraft</comment>
        <translation>Das Telefon kann keine Nachrichten in seinem Eingang ablegen. Sie liegen in seinen Entwürfen.</translation>
    </message>
    <message>
        <source>A copy is kept in the Draft folder of the PC.</source>
        <comment>CopyKeptInDraft</comment>
        <translation>Eine Kopie liegt in den Entwürfen des PCs.</translation>
    </message>
    <message>
        <source>Locations of the handset that still hold parts of it: %s</source>
        <comment>LocationsLeft</comment>
        <translation>Speicherplätze des Telefons, auf denen noch Teile davon liegen: %s</translation>
    </message>
    <message>
        <source>The handset gave error %d.</source>
        <comment>HandsetError</comment>
        <translation>Das Telefon meldet den Fehler %d.</translation>
    </message>
    <message>
        <source>Something else stands there on the phone by now, so nothing was deleted. Read its messages again.</source>
        <comment>MessageReplaced</comment>
        <translation>Dort steht auf dem Telefon inzwischen etwas anderes, darum wurde nichts gelöscht. Lesen Sie seine Nachrichten noch einmal.</translation>
    </message>
    <message>
        <source>This entry of the phone can't be read as a message. All you can do with it is delete it, by itself.</source>
        <comment>MessageUnreadable</comment>
        <translation>Dieser Eintrag des Telefons lässt sich nicht als Nachricht lesen. Sie können ihn nur löschen, und nur für sich allein.</translation>
    </message>
    <message>
        <source>Not all parts of this message could be read, so it stays on the phone.</source>
        <comment>MessageIncomplete</comment>
        <translation>Nicht alle Teile dieser Nachricht konnten gelesen werden, darum bleibt sie auf dem Telefon.</translation>
    </message>
    <message>
        <source>The phone didn't confirm it: it may have been sent all the same.</source>
        <comment>MayBeSent</comment>
        <translation>Das Telefon hat es nicht bestätigt: Sie kann trotzdem gesendet worden sein.</translation>
    </message>
    <message>
        <source>The phone didn't confirm it: it may be stored all the same. Read its messages before you try again.</source>
        <comment>MayBeStored</comment>
        <translation>Das Telefon hat es nicht bestätigt: Sie kann trotzdem gespeichert sein. Lesen Sie seine Nachrichten, bevor Sie es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The handset doesn't answer any more.</source>
        <comment>HandsetLost</comment>
        <translation>Das Telefon antwortet nicht mehr.</translation>
    </message>
    <message>
        <source>Memory</source>
        <comment>ColumnMemory</comment>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>From</source>
        <comment>ColumnFrom</comment>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <comment>ColumnTo</comment>
        <translation>An</translation>
    </message>
    <message>
        <source>Time</source>
        <comment>ColumnTime</comment>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Message</source>
        <comment>ColumnMessage</comment>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>To %s, %s</source>
        <comment>MessageTo</comment>
        <translation>An %s, %s</translation>
    </message>
    <message>
        <source>From %s, %s</source>
        <comment>MessageFrom</comment>
        <translation>Von %s, %s</translation>
    </message>
    <message>
        <source>Success</source>
        <comment>SendSuccess</comment>
        <translation>Gesendet</translation>
    </message>
    <message>
        <source>Failed</source>
        <comment>SendFailed</comment>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Fail to create EMS object!</source>
        <comment>EmsObjectNotCreated</comment>
        <translation>Das EMS-Objekt konnte nicht angelegt werden!</translation>
    </message>
    <message>
        <source>Fail to export message to file!</source>
        <comment>MessagesNotExported</comment>
        <translation>Die Nachrichten konnten nicht in die Datei geschrieben werden!</translation>
    </message>
    <message>
        <source>Fail to import message from file!</source>
        <comment>MessagesNotImported</comment>
        <translation>Die Nachrichten konnten nicht aus der Datei gelesen werden!</translation>
    </message>
    <message>
        <source>%d / %d (%s = %d SMS)</source>
        <comment>SmsCounter</comment>
        <translation>%d / %d (%s = %d SMS)</translation>
    </message>
    <message>
        <source>%d / %d (%s = %d EMS)</source>
        <comment>EmsCounter</comment>
        <translation>%d / %d (%s = %d EMS)</translation>
    </message>
    <message>
        <source>Total</source>
        <comment>CounterTotal</comment>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Invalid Object!</source>
        <comment>EmsInvalidObject</comment>
        <translation>Ungültiges Objekt!</translation>
    </message>
    <message>
        <source>The message is too long (more than 10 SMS)!Last input may be lost!</source>
        <comment>EmsMessageTooLong</comment>
        <translation>Die Nachricht ist zu lang (mehr als 10 SMS)! Die letzte Eingabe ist vielleicht verloren!</translation>
    </message>
    <message>
        <source>Not support long SMS, last input maybe lost.</source>
        <comment>EmsLongSmsOff</comment>
        <translation>Lange SMS sind ausgeschaltet, die letzte Eingabe ist vielleicht verloren.</translation>
    </message>
    <message>
        <source>Invalid DCS!</source>
        <comment>EmsInvalidDcs</comment>
        <translation>Ungültige Codierung!</translation>
    </message>
    <message>
        <source>Not Support Color Picture!</source>
        <comment>EmsNoColourPicture</comment>
        <translation>Farbige Bilder gehen hier nicht!</translation>
    </message>
    <message>
        <source>Null Pointer!</source>
        <comment>EmsNullPointer</comment>
        <translation>Leerer Zeiger!</translation>
    </message>
    <message>
        <source>No memory or number of EMS object exceeds!</source>
        <comment>EmsNoMemory</comment>
        <translation>Kein Speicher oder zu viele EMS-Objekte!</translation>
    </message>
    <message>
        <source>Unspecified Error!</source>
        <comment>EmsUnspecified</comment>
        <translation>Unbekannter Fehler!</translation>
    </message>
    <message>
        <source>New message</source>
        <comment>EditorNewMessage</comment>
        <translation>Neue Nachricht</translation>
    </message>
    <message>
        <source>Message to %s</source>
        <comment>EditorMessageTo</comment>
        <translation>Nachricht an %s</translation>
    </message>
    <message>
        <source>Text of the message</source>
        <comment>EditorText</comment>
        <translation>Text der Nachricht</translation>
    </message>
    <message>
        <source>Length of the message</source>
        <comment>EditorLength</comment>
        <translation>Länge der Nachricht</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <comment>RecipientsLabel</comment>
        <translation>A&amp;n:</translation>
    </message>
    <message>
        <source>Numbers, with commas between them</source>
        <comment>RecipientsHint</comment>
        <translation>Nummern, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>Add from phonebook</source>
        <comment>AddFromPhonebook</comment>
        <translation>Aus dem Telefonbuch hinzufügen</translation>
    </message>
    <message>
        <source>There are no contacts yet.</source>
        <comment>NoContactsYet</comment>
        <translation>Es gibt noch keine Kontakte.</translation>
    </message>
    <message>
        <source>&amp;Message</source>
        <comment>MenuMessage</comment>
        <translation>&amp;Nachricht</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>MenuEdit</comment>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>F&amp;ormat</source>
        <comment>MenuFormat</comment>
        <translation>F&amp;ormat</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <comment>MenuInsert</comment>
        <translation>Ein&amp;fügen</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <comment>CommandSend</comment>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>S&amp;ave...</source>
        <comment>CommandSave</comment>
        <translation>S&amp;peichern …</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <comment>CommandUndo</comment>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <comment>CommandRedo</comment>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <comment>CommandCut</comment>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <comment>CommandCopy</comment>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <comment>CommandPaste</comment>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <comment>CommandDelete</comment>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <comment>CommandSelectAll</comment>
        <translation>Alles aus&amp;wählen</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <comment>CommandZoomIn</comment>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <comment>CommandZoomOut</comment>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Normal size</source>
        <comment>CommandZoomReset</comment>
        <translation>&amp;Normale Größe</translation>
    </message>
    <message>
        <source>&amp;Bold</source>
        <comment>FormatBold</comment>
        <translation>&amp;Fett</translation>
    </message>
    <message>
        <source>&amp;Italic</source>
        <comment>FormatItalic</comment>
        <translation>&amp;Kursiv</translation>
    </message>
    <message>
        <source>&amp;Underline</source>
        <comment>FormatUnderline</comment>
        <translation>&amp;Unterstrichen</translation>
    </message>
    <message>
        <source>Stri&amp;kethrough</source>
        <comment>FormatStrikethrough</comment>
        <translation>&amp;Durchgestrichen</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <comment>FormatSize</comment>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>Small</source>
        <comment>SizeSmall</comment>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Normal</source>
        <comment>SizeNormal</comment>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Large</source>
        <comment>SizeLarge</comment>
        <translation>Groß</translation>
    </message>
    <message>
        <source>&amp;Alignment</source>
        <comment>FormatAlignment</comment>
        <translation>&amp;Ausrichtung</translation>
    </message>
    <message>
        <source>Left</source>
        <comment>AlignLeft</comment>
        <translation>Links</translation>
    </message>
    <message>
        <source>Centre</source>
        <comment>AlignCentre</comment>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <comment>AlignRight</comment>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Text &amp;colour</source>
        <comment>FormatForeground</comment>
        <translation>&amp;Textfarbe</translation>
    </message>
    <message>
        <source>Back&amp;ground colour</source>
        <comment>FormatBackground</comment>
        <translation>&amp;Hintergrundfarbe</translation>
    </message>
    <message>
        <source>%s (default)</source>
        <comment>ColourDefault</comment>
        <translation>%s (Standard)</translation>
    </message>
    <message>
        <source>Black</source>
        <comment>ColourBlack</comment>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Dark grey</source>
        <comment>ColourDarkGrey</comment>
        <translation>Dunkelgrau</translation>
    </message>
    <message>
        <source>Dark red</source>
        <comment>ColourDarkRed</comment>
        <translation>Dunkelrot</translation>
    </message>
    <message>
        <source>Orange</source>
        <comment>ColourOrange</comment>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Green</source>
        <comment>ColourGreen</comment>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Teal</source>
        <comment>ColourTeal</comment>
        <translation>Blaugrün</translation>
    </message>
    <message>
        <source>Dark blue</source>
        <comment>ColourDarkBlue</comment>
        <translation>Dunkelblau</translation>
    </message>
    <message>
        <source>Purple</source>
        <comment>ColourPurple</comment>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Grey</source>
        <comment>ColourGrey</comment>
        <translation>Grau</translation>
    </message>
    <message>
        <source>White</source>
        <comment>ColourWhite</comment>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Red</source>
        <comment>ColourRed</comment>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Yellow</source>
        <comment>ColourYellow</comment>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Bright green</source>
        <comment>ColourBrightGreen</comment>
        <translation>Hellgrün</translation>
    </message>
    <message>
        <source>Cyan</source>
        <comment>ColourCyan</comment>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Blue</source>
        <comment>ColourBlue</comment>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Magenta</source>
        <comment>ColourMagenta</comment>
        <translation>Magenta</translation>
    </message>
    <message>
        <source>Insert picture</source>
        <comment>InsertPicture</comment>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>Insert sound</source>
        <comment>InsertSound</comment>
        <translation>Klang einfügen</translation>
    </message>
    <message>
        <source>Insert animation</source>
        <comment>InsertAnimation</comment>
        <translation>Animation einfügen</translation>
    </message>
    <message>
        <source>&amp;From file...</source>
        <comment>InsertFromFile</comment>
        <translation>Aus &amp;Datei …</translation>
    </message>
    <message>
        <source>Pictures for messages</source>
        <comment>PictureFiles</comment>
        <translation>Bilder für Nachrichten</translation>
    </message>
    <message>
        <source>iMelody files</source>
        <comment>MelodyFiles</comment>
        <translation>iMelody-Dateien</translation>
    </message>
    <message>
        <source>Animated pictures</source>
        <comment>AnimationFiles</comment>
        <translation>Animierte Bilder</translation>
    </message>
    <message>
        <source>Only pictures of black and white go into a message.</source>
        <comment>PictureNotMonochrome</comment>
        <translation>In eine Nachricht passen nur Bilder in Schwarz und Weiß.</translation>
    </message>
    <message>
        <source>A picture in a message has at most 255 pixels a side.</source>
        <comment>PictureTooLong</comment>
        <translation>Ein Bild in einer Nachricht ist höchstens 255 Pixel breit und hoch.</translation>
    </message>
    <message>
        <source>The picture is too large for a message.</source>
        <comment>PictureTooLarge</comment>
        <translation>Das Bild ist für eine Nachricht zu groß.</translation>
    </message>
    <message>
        <source>It's not an iMelody file.</source>
        <comment>FileNotIMelody</comment>
        <translation>Das ist keine iMelody-Datei.</translation>
    </message>
    <message>
        <source>An animation in a message has at most 4 frames, all of 8 x 8 or of 16 x 16 pixels.</source>
        <comment>AnimationUnfit</comment>
        <translation>Eine Animation in einer Nachricht hat höchstens 4 Einzelbilder, alle mit 8 x 8 oder mit 16 x 16 Pixeln.</translation>
    </message>
    <message>
        <source>The melody is too large for a message.</source>
        <comment>MelodyTooLarge</comment>
        <translation>Die Melodie ist für eine Nachricht zu groß.</translation>
    </message>
    <message>
        <source>Sound %d</source>
        <comment>ObjectSound</comment>
        <translation>Klang %d</translation>
    </message>
    <message>
        <source>Melody</source>
        <comment>ObjectMelody</comment>
        <translation>Melodie</translation>
    </message>
    <message>
        <source>Animation %d</source>
        <comment>ObjectPredefinedAnimation</comment>
        <translation>Animation %d</translation>
    </message>
    <message>
        <source>Animation, %d x %d</source>
        <comment>ObjectAnimation</comment>
        <translation>Animation, %d × %d</translation>
    </message>
    <message>
        <source>Picture, %d x %d</source>
        <comment>ObjectPicture</comment>
        <translation>Bild, %d × %d</translation>
    </message>
    <message>
        <source>Contact card</source>
        <comment>ObjectCard</comment>
        <translation>Visitenkarte</translation>
    </message>
    <message>
        <source>Calendar entry</source>
        <comment>ObjectCalendar</comment>
        <translation>Kalendereintrag</translation>
    </message>
    <message>
        <source>%s: %s</source>
        <comment>ObjectNamed</comment>
        <translation>%s: %s</translation>
    </message>
    <message>
        <source>Chimes high</source>
        <comment>SoundChimesHigh</comment>
        <translation>Glockenspiel hoch</translation>
    </message>
    <message>
        <source>Chimes low</source>
        <comment>SoundChimesLow</comment>
        <translation>Glockenspiel tief</translation>
    </message>
    <message>
        <source>Ding</source>
        <comment>SoundDing</comment>
        <translation>Ding</translation>
    </message>
    <message>
        <source>TaDa</source>
        <comment>SoundTaDa</comment>
        <translation>Tada</translation>
    </message>
    <message>
        <source>Notify</source>
        <comment>SoundNotify</comment>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Drum</source>
        <comment>SoundDrum</comment>
        <translation>Trommel</translation>
    </message>
    <message>
        <source>Claps</source>
        <comment>SoundClaps</comment>
        <translation>Klatschen</translation>
    </message>
    <message>
        <source>Fanfare</source>
        <comment>SoundFanfare</comment>
        <translation>Fanfare</translation>
    </message>
    <message>
        <source>Chord high</source>
        <comment>SoundChordHigh</comment>
        <translation>Akkord hoch</translation>
    </message>
    <message>
        <source>Chord low</source>
        <comment>SoundChordLow</comment>
        <translation>Akkord tief</translation>
    </message>
    <message>
        <source>I am ironic, flirty</source>
        <comment>AnimationIronic</comment>
        <translation>Ironisch, kokett</translation>
    </message>
    <message>
        <source>I am glad</source>
        <comment>AnimationGlad</comment>
        <translation>Froh</translation>
    </message>
    <message>
        <source>I am sceptic</source>
        <comment>AnimationSceptic</comment>
        <translation>Skeptisch</translation>
    </message>
    <message>
        <source>I am sad</source>
        <comment>AnimationSad</comment>
        <translation>Traurig</translation>
    </message>
    <message>
        <source>WOW!</source>
        <comment>AnimationWow</comment>
        <translation>WOW!</translation>
    </message>
    <message>
        <source>I am crying</source>
        <comment>AnimationCrying</comment>
        <translation>Weinend</translation>
    </message>
    <message>
        <source>I am winking</source>
        <comment>AnimationWinking</comment>
        <translation>Zwinkernd</translation>
    </message>
    <message>
        <source>I am laughing</source>
        <comment>AnimationLaughing</comment>
        <translation>Lachend</translation>
    </message>
    <message>
        <source>I am indifferent</source>
        <comment>AnimationIndifferent</comment>
        <translation>Gleichgültig</translation>
    </message>
    <message>
        <source>In love, kissing</source>
        <comment>AnimationInLove</comment>
        <translation>Verliebt, küssend</translation>
    </message>
    <message>
        <source>I am confused</source>
        <comment>AnimationConfused</comment>
        <translation>Verwirrt</translation>
    </message>
    <message>
        <source>Tongue hanging out</source>
        <comment>AnimationTongue</comment>
        <translation>Zunge heraus</translation>
    </message>
    <message>
        <source>I am angry</source>
        <comment>AnimationAngry</comment>
        <translation>Wütend</translation>
    </message>
    <message>
        <source>Wearing glasses</source>
        <comment>AnimationGlasses</comment>
        <translation>Mit Brille</translation>
    </message>
    <message>
        <source>Devil</source>
        <comment>AnimationDevil</comment>
        <translation>Teufel</translation>
    </message>
    <message>
        <source>From:</source>
        <comment>ReaderFrom</comment>
        <translation>Von:</translation>
    </message>
    <message>
        <source>To:</source>
        <comment>ReaderTo</comment>
        <translation>An:</translation>
    </message>
    <message>
        <source>Time:</source>
        <comment>ReaderTime</comment>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>Unreadable: %s</source>
        <comment>UnreadableMessage</comment>
        <translation>Nicht lesbar: %s</translation>
    </message>
    <message>
        <source>Arrives as: %s</source>
        <comment>ArrivesAs</comment>
        <translation>Kommt an als: %s</translation>
    </message>
    <message>
        <source>Letters that will arrive otherwise: %s</source>
        <comment>ArrivingOtherwise</comment>
        <translation>Buchstaben, die anders ankommen: %s</translation>
    </message>
    <message>
        <source>Folder:</source>
        <comment>ReaderFolder</comment>
        <translation>Ordner:</translation>
    </message>
    <message>
        <source>No message chosen</source>
        <comment>ReaderEmptyTitle</comment>
        <translation>Keine Nachricht gewählt</translation>
    </message>
    <message>
        <source>Messages chosen: %d</source>
        <comment>ReaderSeveralTitle</comment>
        <translation>Ausgewählte Nachrichten: %d</translation>
    </message>
    <message>
        <source>Choose a message in the list to read it here.</source>
        <comment>ReaderEmptyHint</comment>
        <translation>Wählen Sie in der Liste eine Nachricht, um sie hier zu lesen.</translation>
    </message>
    <message>
        <source>Save to...</source>
        <comment>SaveMessageTo</comment>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <source>Recipient</source>
        <comment>SendingRecipient</comment>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Status</source>
        <comment>SendingStatus</comment>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>%d/%d</source>
        <comment>SendingProgress</comment>
        <translation>%d/%d</translation>
    </message>
    <message>
        <source>Sent: %d of %d</source>
        <comment>SendingSummary</comment>
        <translation>Gesendet: %d von %d</translation>
    </message>
    <message>
        <source>Waiting</source>
        <comment>SendWaiting</comment>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Sending...</source>
        <comment>SendUnderWay</comment>
        <translation>Wird gesendet …</translation>
    </message>
    <message>
        <source>Failed (error %d)</source>
        <comment>SendFailedError</comment>
        <translation>Fehlgeschlagen (Fehler %d)</translation>
    </message>
    <message>
        <source>Not sent</source>
        <comment>SendNotTried</comment>
        <translation>Nicht gesendet</translation>
    </message>
    <message>
        <source>Messages that could not be read: %d</source>
        <comment>MessagesUnread</comment>
        <translation>%d Nachrichten konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Messages that the phone counts but didn't show: %d</source>
        <comment>MessagesMissing</comment>
        <translation>Nachrichten, die das Telefon zählt, aber nicht gezeigt hat: %d</translation>
    </message>
    <message>
        <source>Memories of the phone that it didn't open: %s</source>
        <comment>MemoriesRefused</comment>
        <translation>Speicher, die das Telefon nicht geöffnet hat: %s</translation>
    </message>
    <message>
        <source>Read at %s. The phone has been connected anew since then: read again before you delete or move.</source>
        <comment>MirrorOld</comment>
        <translation>Gelesen um %s. Das Telefon wurde seitdem neu verbunden: Lesen Sie noch einmal, bevor Sie löschen oder verschieben.</translation>
    </message>
    <message>
        <source>Read at %s. Something is missing here: not all of the phone could be read.</source>
        <comment>MirrorPartly</comment>
        <translation>Gelesen um %s. Hier fehlt etwas: Nicht alles auf dem Telefon ließ sich lesen.</translation>
    </message>
    <message>
        <source>Read at %s. Something else stands on the phone by now: read again before you delete or move.</source>
        <comment>MirrorRefuted</comment>
        <translation>Gelesen um %s. Auf dem Telefon steht inzwischen etwas anderes: Lesen Sie noch einmal, bevor Sie löschen oder verschieben.</translation>
    </message>
    <message>
        <source>The phone is busy with something else. Please try again in a moment.</source>
        <comment>HandsetBusy</comment>
        <translation>Das Telefon ist gerade beschäftigt. Bitte versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>%s, %d unread</source>
        <comment>FolderWithUnread</comment>
        <translation>%s, %d ungelesen</translation>
    </message>
    <message>
        <source>%s, unread</source>
        <comment>UnreadFrom</comment>
        <translation>%s, ungelesen</translation>
    </message>
    <message>
        <source>Folders of messages</source>
        <comment>FoldersName</comment>
        <translation>Ordner der Nachrichten</translation>
    </message>
    <message>
        <source>F&amp;older</source>
        <comment>MenuFolder</comment>
        <translation>&amp;Ordner</translation>
    </message>
    <message>
        <source>&amp;New message</source>
        <comment>CommandNewMessage</comment>
        <translation>&amp;Neue Nachricht</translation>
    </message>
    <message>
        <source>&amp;Open message</source>
        <comment>CommandOpenMessage</comment>
        <translation>Nachricht ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Reply message</source>
        <comment>CommandReplyMessage</comment>
        <translation>&amp;Antworten</translation>
    </message>
    <message>
        <source>&amp;Forward message</source>
        <comment>CommandForwardMessage</comment>
        <translation>&amp;Weiterleiten</translation>
    </message>
    <message>
        <source>&amp;Send message</source>
        <comment>CommandSendMessage</comment>
        <translation>Nachricht &amp;senden</translation>
    </message>
    <message>
        <source>Send &amp;all messages</source>
        <comment>CommandSendAllMessages</comment>
        <translation>Alle Nachrichten sen&amp;den</translation>
    </message>
    <message>
        <source>Rea&amp;d</source>
        <comment>CommandReadMessages</comment>
        <translation>Vom Telefon &amp;lesen</translation>
    </message>
    <message>
        <source>Save &amp;Text</source>
        <comment>CommandSaveText</comment>
        <translation>&amp;Text speichern</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <comment>CommandImport</comment>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <comment>CommandExport</comment>
        <translation>&amp;Exportieren</translation>
    </message>
    <message>
        <source>&amp;Print message</source>
        <comment>CommandPrintMessage</comment>
        <translation>Nachricht &amp;drucken</translation>
    </message>
    <message>
        <source>Print pre&amp;view</source>
        <comment>CommandPrintPreview</comment>
        <translation>Druck&amp;vorschau</translation>
    </message>
    <message>
        <source>&amp;Move to folder...</source>
        <comment>CommandMoveTo</comment>
        <translation>In Ordner &amp;verschieben …</translation>
    </message>
    <message>
        <source>Cop&amp;y to folder...</source>
        <comment>CommandCopyTo</comment>
        <translation>In Ordner k&amp;opieren …</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <comment>CommandFind</comment>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <comment>CommandNewFolder</comment>
        <translation>&amp;Neuer Ordner</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <comment>CommandRename</comment>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <comment>CommandDeleteFolder</comment>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Clean trash can</source>
        <comment>CommandCleanTrash</comment>
        <translation>&amp;Papierkorb leeren</translation>
    </message>
    <message>
        <source>Please wait until the phone has finished.</source>
        <comment>ObstacleBusy</comment>
        <translation>Bitte warten Sie, bis das Telefon fertig ist.</translation>
    </message>
    <message>
        <source>The phone isn't connected.</source>
        <comment>ObstacleNoHandset</comment>
        <translation>Das Telefon ist nicht verbunden.</translation>
    </message>
    <message>
        <source>Select one message first.</source>
        <comment>ObstacleNotOneMessage</comment>
        <translation>Wählen Sie zuerst eine einzelne Nachricht.</translation>
    </message>
    <message>
        <source>Select a message first.</source>
        <comment>ObstacleNoMessage</comment>
        <translation>Wählen Sie zuerst eine Nachricht.</translation>
    </message>
    <message>
        <source>There is nothing in this folder.</source>
        <comment>ObstacleEmptyFolder</comment>
        <translation>In diesem Ordner ist nichts.</translation>
    </message>
    <message>
        <source>Cut or copy messages first.</source>
        <comment>ObstacleNothingCut</comment>
        <translation>Schneiden Sie zuerst Nachrichten aus oder kopieren Sie welche.</translation>
    </message>
    <message>
        <source>Messages lie in the folders below this one.</source>
        <comment>ObstacleNoPlaceForMessages</comment>
        <translation>Nachrichten liegen in den Ordnern darunter.</translation>
    </message>
    <message>
        <source>New folders can be made in the Personal Folder and below it.</source>
        <comment>ObstacleNoPlaceForFolder</comment>
        <translation>Neue Ordner gibt es im Ordner „Persönlich“ und darunter.</translation>
    </message>
    <message>
        <source>Only folders that you have made can be changed.</source>
        <comment>ObstacleFixedFolder</comment>
        <translation>Nur Ordner, die Sie selbst angelegt haben, lassen sich ändern.</translation>
    </message>
    <message>
        <source>No message waits in the Outbox of the PC.</source>
        <comment>ObstacleEmptyOutbox</comment>
        <translation>Im Ausgang des PCs wartet keine Nachricht.</translation>
    </message>
    <message>
        <source>Messages left as they were: %d of %d</source>
        <comment>MessagesNotTried</comment>
        <translation>Nachrichten, die blieben, wie sie waren: %d von %d</translation>
    </message>
    <message>
        <source>What can't be read as a message was left out: %d</source>
        <comment>MessagesUnreadable</comment>
        <translation>Was nicht als Nachricht lesbar ist, wurde ausgelassen: %d</translation>
    </message>
    <message>
        <source>Messages without text, which were left out: %d</source>
        <comment>MessagesWithoutText</comment>
        <translation>Nachrichten ohne Text, die ausgelassen wurden: %d</translation>
    </message>
    <message>
        <source>Messages imported: %d. Lines that are not messages and were left out: %d.</source>
        <comment>LinesRefused</comment>
        <translation>Importierte Nachrichten: %d. Zeilen, die keine Nachrichten sind und ausgelassen wurden: %d.</translation>
    </message>
    <message>
        <source>%s is a name and not a number: the message can't be answered.</source>
        <comment>SenderIsName</comment>
        <translation>%s ist ein Name und keine Nummer: Die Nachricht lässt sich nicht beantworten.</translation>
    </message>
    <message>
        <source>The phone isn't connected. The message waits in the Outbox of the PC.</source>
        <comment>WaitsInOutbox</comment>
        <translation>Das Telefon ist nicht verbunden. Die Nachricht wartet im Ausgang des PCs.</translation>
    </message>
    <message>
        <source>Export messages</source>
        <comment>ExportTitle</comment>
        <translation>Nachrichten exportieren</translation>
    </message>
    <message>
        <source>Import messages</source>
        <comment>ImportTitle</comment>
        <translation>Nachrichten importieren</translation>
    </message>
    <message>
        <source>Message files</source>
        <comment>MessageFiles</comment>
        <translation>Nachrichtendateien</translation>
    </message>
    <message>
        <source>messages.csv</source>
        <comment>MessageFileName</comment>
        <translation>nachrichten.csv</translation>
    </message>
    <message>
        <source>Find in messages</source>
        <comment>FindInMessages</comment>
        <translation>In Nachrichten suchen</translation>
    </message>
    <message>
        <source>Messages: %d</source>
        <comment>MessagesCount</comment>
        <translation>Nachrichten: %d</translation>
    </message>
    <message>
        <source>Found: %d of %d</source>
        <comment>MessagesFound</comment>
        <translation>Gefunden: %d von %d</translation>
    </message>
    <message>
        <source>selected: %d</source>
        <comment>MessagesSelected</comment>
        <translation>ausgewählt: %d</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <comment>NothingFoundTitle</comment>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>No message of this folder contains these words in its text or its number.</source>
        <comment>NothingFoundHint</comment>
        <translation>Keine Nachricht dieses Ordners enthält diese Wörter im Text oder in der Nummer.</translation>
    </message>
    <message>
        <source>No messages here yet</source>
        <comment>HandsetFolderEmptyTitle</comment>
        <translation>Noch keine Nachrichten</translation>
    </message>
    <message>
        <source>Read the messages of the phone to see them in its folders.</source>
        <comment>HandsetFolderEmptyHint</comment>
        <translation>Lesen Sie die Nachrichten des Telefons, um sie in seinen Ordnern zu sehen.</translation>
    </message>
    <message>
        <source>The phone isn't connected</source>
        <comment>HandsetAwayTitle</comment>
        <translation>Das Telefon ist nicht verbunden</translation>
    </message>
    <message>
        <source>Plug the phone in, then read its messages. The port is chosen in the settings.</source>
        <comment>HandsetAwayHint</comment>
        <translation>Stecken Sie das Telefon ein und lesen Sie dann seine Nachrichten. Den Anschluss wählen Sie in den Einstellungen.</translation>
    </message>
    <message>
        <source>No messages in this folder</source>
        <comment>FolderEmptyTitle</comment>
        <translation>Keine Nachrichten in diesem Ordner</translation>
    </message>
    <message>
        <source>Drag messages here, write a new one, or import a file.</source>
        <comment>FolderEmptyHint</comment>
        <translation>Ziehen Sie Nachrichten hierher, schreiben Sie eine neue oder importieren Sie eine Datei.</translation>
    </message>
    <message>
        <source>Choose a folder</source>
        <comment>ChooseFolderTitle</comment>
        <translation>Wählen Sie einen Ordner</translation>
    </message>
    <message>
        <source>The folders below this one hold the messages.</source>
        <comment>ChooseFolderHint</comment>
        <translation>Die Nachrichten liegen in den Ordnern darunter.</translation>
    </message>
    <message>
        <source>Handset folder</source>
        <comment>ContactHandsetFolder</comment>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>PC folder</source>
        <comment>ContactPcFolder</comment>
        <translation>PC</translation>
    </message>
    <message>
        <source>Trash can</source>
        <comment>ContactTrashCan</comment>
        <translation>Papierkorb</translation>
    </message>
    <message>
        <source>Lotus Notes</source>
        <comment>LotusNotes</comment>
        <translation>Lotus Notes</translation>
    </message>
    <message>
        <source>Outlook</source>
        <comment>Outlook</comment>
        <translation>Outlook</translation>
    </message>
    <message>
        <source>Outlook Express</source>
        <comment>OutlookExpress</comment>
        <translation>Outlook Express</translation>
    </message>
    <message>
        <source>Mobile</source>
        <comment>LabelMobile</comment>
        <translation>Mobil</translation>
    </message>
    <message>
        <source>Home</source>
        <comment>LabelHome</comment>
        <translation>Privat</translation>
    </message>
    <message>
        <source>Office</source>
        <comment>LabelOffice</comment>
        <translation>Büro</translation>
    </message>
    <message>
        <source>Fax</source>
        <comment>LabelFax</comment>
        <translation>Fax</translation>
    </message>
    <message>
        <source>The name shouldn't contain any char of '\\' or '/'.</source>
        <comment>NameHasSlash</comment>
        <translation>Der Name darf kein „\“ und kein „/“ enthalten.</translation>
    </message>
    <message>
        <source>The maximum of contact name is %d characters!</source>
        <comment>NameTooLong</comment>
        <translation>Ein Name hat höchstens %d Zeichen!</translation>
    </message>
    <message>
        <source>The maximum of contact name is %d English characters,
or %d Chinese characters!

Each of the following will be considered as 2 characters: 
\\ | [ ] { } ^ ~</source>
        <comment>NameTooLongForHandset</comment>
        <translation>Ein Name hat höchstens %d lateinische
oder %d chinesische Zeichen!

Jedes der folgenden zählt als 2 Zeichen: 
\ | [ ] { } ^ ~</translation>
    </message>
    <message>
        <source>The maximum of contact name is %d English characters,
%d characters (if contains only Thai, Russian, Latin
or Arabic), or %d Chinese characters!</source>
        <comment>NameTooLongPacked</comment>
        <translation>Ein Name hat höchstens %d lateinische Zeichen,
%d Zeichen (wenn er nur thailändisch, russisch, lateinisch
oder arabisch ist) oder %d chinesische Zeichen!</translation>
    </message>
    <message>
        <source>Invalid %s number format!</source>
        <comment>InvalidNumberFormat</comment>
        <translation>Ungültige Nummer: %s!</translation>
    </message>
    <message>
        <source>The maximum of contact number is 40 characters!</source>
        <comment>NumberTooLong</comment>
        <translation>Eine Nummer hat höchstens 40 Zeichen!</translation>
    </message>
    <message>
        <source>Please enter the contact's name or phone number!</source>
        <comment>NameOrNumberMissing</comment>
        <translation>Bitte geben Sie Namen oder Nummer des Kontakts an!</translation>
    </message>
    <message>
        <source>Email format is invalid, or it's too long! The maximum length is 60.</source>
        <comment>InvalidEmail</comment>
        <translation>Die E-Mail-Adresse ist ungültig oder zu lang! Sie hat höchstens 60 Zeichen.</translation>
    </message>
    <message>
        <source>The input of anniversary is not valid.

The correct format is 25/01/2004,
and the year must be between 1900-2030.</source>
        <comment>InvalidAnniversary</comment>
        <translation>Der Jahrestag ist ungültig.

Richtig ist etwa 25/01/2004,
mit einem Jahr von 1900 bis 2030.</translation>
    </message>
    <message>
        <source>Failed to download phonebook entries from handset!</source>
        <comment>PhonebookNotDownloaded</comment>
        <translation>Das Telefonbuch konnte nicht vom Telefon geladen werden!</translation>
    </message>
    <message>
        <source>There's no enough space in the disk!</source>
        <comment>NoDiskSpace</comment>
        <translation>Auf dem Datenträger ist nicht genug Platz!</translation>
    </message>
    <message>
        <source>Reading advanced items of ME entries ...</source>
        <comment>ReadingAdvancedItems</comment>
        <translation>Weitere Angaben der Einträge des Telefons werden gelesen …</translation>
    </message>
    <message>
        <source>Reading advanced...</source>
        <comment>ReadingAdvanced</comment>
        <translation>Weitere Angaben werden gelesen …</translation>
    </message>
    <message>
        <source>Fail to read advanced information!</source>
        <comment>AdvancedNotRead</comment>
        <translation>Die weiteren Angaben konnten nicht gelesen werden!</translation>
    </message>
    <message>
        <source>Failed to export phonebook to file!</source>
        <comment>PhonebookNotExported</comment>
        <translation>Das Telefonbuch konnte nicht in die Datei geschrieben werden!</translation>
    </message>
    <message>
        <source>Failed to import phonebook from file!</source>
        <comment>PhonebookNotImported</comment>
        <translation>Das Telefonbuch konnte nicht aus der Datei gelesen werden!</translation>
    </message>
    <message>
        <source>Reading contacts form outlook...</source>
        <comment>ReadingOutlook</comment>
        <translation>Kontakte werden aus Outlook gelesen …</translation>
    </message>
    <message>
        <source>Please set the path of Lotus Notes first.</source>
        <comment>LotusNotesPathMissing</comment>
        <translation>Bitte geben Sie zuerst den Pfad von Lotus Notes an.</translation>
    </message>
    <message>
        <source>Do you want to save the contact ?</source>
        <comment>SaveContact</comment>
        <translation>Möchten Sie den Kontakt speichern?</translation>
    </message>
    <message>
        <source>Save to...</source>
        <comment>SaveContactTo</comment>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <source>Phone book full!</source>
        <comment>PhonebookFull</comment>
        <translation>Das Telefonbuch ist voll!</translation>
    </message>
    <message>
        <source>The phonebook is out of synchronization with mobile phone. You have to download the phonebook first!</source>
        <comment>PhonebookOutOfSync</comment>
        <translation>Das Telefonbuch stimmt nicht mehr mit dem Telefon überein. Bitte laden Sie es zuerst neu!</translation>
    </message>
    <message>
        <source>Fail to write contact to handset!</source>
        <comment>ContactNotWritten</comment>
        <translation>Der Kontakt konnte nicht auf das Telefon geschrieben werden!</translation>
    </message>
    <message>
        <source>Fail to update contact from handset!</source>
        <comment>ContactNotUpdated</comment>
        <translation>Der Kontakt konnte auf dem Telefon nicht geändert werden!</translation>
    </message>
    <message>
        <source>Fail to move contact(s)!</source>
        <comment>ContactsNotMoved</comment>
        <translation>Die Kontakte konnten nicht verschoben werden!</translation>
    </message>
    <message>
        <source>The contact name '%s' exceeds length maximum!
 It will be shorten to '%s' for mobile phone!</source>
        <comment>NameWillBeShortened</comment>
        <translation>Der Name „%s“ ist zu lang!
 Für das Telefon wird er gekürzt auf „%s“!</translation>
    </message>
    <message>
        <source>There is not enough space in handset!

Only %d contact(s) will be moved!</source>
        <comment>NotAllContactsMoved</comment>
        <translation>Auf dem Telefon ist nicht genug Platz!

Nur %d Kontakte werden verschoben!</translation>
    </message>
    <message>
        <source>There is not enough space in handset!

Only %d contact(s) will be copied!</source>
        <comment>NotAllContactsCopied</comment>
        <translation>Auf dem Telefon ist nicht genug Platz!

Nur %d Kontakte werden kopiert!</translation>
    </message>
    <message>
        <source>Copying contacts...</source>
        <comment>CopyingContacts</comment>
        <translation>Kontakte werden kopiert …</translation>
    </message>
    <message>
        <source>Deleting contacts...</source>
        <comment>DeletingContacts</comment>
        <translation>Kontakte werden gelöscht …</translation>
    </message>
    <message>
        <source>Are you sure to delete ?</source>
        <comment>DeleteForGood</comment>
        <translation>Wirklich endgültig löschen?</translation>
    </message>
    <message>
        <source>Do you want to delete the contact(s)?</source>
        <comment>DeleteContacts</comment>
        <translation>Möchten Sie die Kontakte löschen?</translation>
    </message>
    <message>
        <source>Do you want to download the phonebook from handset ?</source>
        <comment>DownloadPhonebook</comment>
        <translation>Möchten Sie das Telefonbuch vom Telefon laden?</translation>
    </message>
    <message>
        <source>Reading phonebook...</source>
        <comment>ReadingPhonebook</comment>
        <translation>Telefonbuch wird gelesen …</translation>
    </message>
    <message>
        <source>Reading phonebook from %s</source>
        <comment>ReadingPhonebookFrom</comment>
        <translation>Telefonbuch wird gelesen: %s</translation>
    </message>
    <message>
        <source>Find contacts...</source>
        <comment>FindContacts</comment>
        <translation>Kontakte suchen …</translation>
    </message>
    <message>
        <source>Can not find the string</source>
        <comment>StringNotFound</comment>
        <translation>Der Text wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>New group</source>
        <comment>NewGroup</comment>
        <translation>Neue Gruppe</translation>
    </message>
    <message>
        <source>Listing files...</source>
        <comment>ListingFiles</comment>
        <translation>Dateien werden aufgelistet …</translation>
    </message>
    <message>
        <source>Current folders :</source>
        <comment>CurrentFolders</comment>
        <translation>Aktuelle Ordner:</translation>
    </message>
    <message>
        <source>Directory information is incomplete.</source>
        <comment>DirectoryIncomplete</comment>
        <translation>Die Angaben zum Ordner sind unvollständig.</translation>
    </message>
    <message>
        <source>Fail to get drive information</source>
        <comment>DriveInformationFailed</comment>
        <translation>Die Angaben zum Laufwerk konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Fail to create directory.</source>
        <comment>DirectoryNotCreated</comment>
        <translation>Der Ordner konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The name has been used!</source>
        <comment>NameUsed</comment>
        <translation>Der Name ist schon vergeben!</translation>
    </message>
    <message>
        <source>File/folder name cannot exceed 62 bytes.</source>
        <comment>FileNameTooLong</comment>
        <translation>Namen von Dateien und Ordnern haben höchstens 62 Bytes.</translation>
    </message>
    <message>
        <source>File/folder name can't be empty, and can't contain
one of the following characters:
\ / : * ? " &lt; &gt; |</source>
        <comment>FileNameNotAllowed</comment>
        <translation>Namen von Dateien und Ordnern dürfen nicht leer sein und
keines der folgenden Zeichen enthalten:
\ / : * ? " &lt; &gt; |</translation>
    </message>
    <message>
        <source>There is no enough space on the handset.</source>
        <comment>NoHandsetSpace</comment>
        <translation>Auf dem Telefon ist nicht genug Platz.</translation>
    </message>
    <message>
        <source>Downloading File...</source>
        <comment>DownloadingFile</comment>
        <translation>Datei wird geladen …</translation>
    </message>
    <message>
        <source>Removing Folder...</source>
        <comment>RemovingFolder</comment>
        <translation>Ordner wird entfernt …</translation>
    </message>
    <message>
        <source>Do you want to delete the files ?</source>
        <comment>DeleteFiles</comment>
        <translation>Möchten Sie die Dateien löschen?</translation>
    </message>
    <message>
        <source>Fail to delete file '%s'!</source>
        <comment>NamedFileNotDeleted</comment>
        <translation>Die Datei „%s“ konnte nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>Fail to delete file!</source>
        <comment>FileNotDeleted</comment>
        <translation>Die Datei konnte nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>Fail to delete folder '%s'!</source>
        <comment>NamedFolderNotDeleted</comment>
        <translation>Der Ordner „%s“ konnte nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>Failed to query contents of folder!</source>
        <comment>FolderNotQueried</comment>
        <translation>Der Inhalt des Ordners konnte nicht gelesen werden!</translation>
    </message>
    <message>
        <source>Fail to download file!</source>
        <comment>FileNotDownloaded</comment>
        <translation>Die Datei konnte nicht geladen werden!</translation>
    </message>
    <message>
        <source>Fail to upload file!</source>
        <comment>FileNotUploaded</comment>
        <translation>Die Datei konnte nicht übertragen werden!</translation>
    </message>
    <message>
        <source>Failed to move file(s)!</source>
        <comment>FilesNotMoved</comment>
        <translation>Die Dateien konnten nicht verschoben werden!</translation>
    </message>
    <message>
        <source>Fail to rename!</source>
        <comment>NotRenamed</comment>
        <translation>Umbenennen ist fehlgeschlagen!</translation>
    </message>
    <message>
        <source>Select a JAR file</source>
        <comment>SelectJarFile</comment>
        <translation>JAR-Datei wählen</translation>
    </message>
    <message>
        <source>Installing JAVA...</source>
        <comment>InstallingJava</comment>
        <translation>JAVA wird installiert …</translation>
    </message>
    <message>
        <source>The length of file name is too long. Please execute java installation through your handset directly.</source>
        <comment>JavaNameTooLong</comment>
        <translation>Der Dateiname ist zu lang. Bitte installieren Sie die Anwendung auf dem Telefon selbst.</translation>
    </message>
    <message>
        <source>Fail to install java. Error: %d</source>
        <comment>JavaNotInstalled</comment>
        <translation>Die Anwendung konnte nicht installiert werden. Fehler: %d</translation>
    </message>
    <message>
        <source>Target didn't respond, please check your target for more information.</source>
        <comment>TargetSilent</comment>
        <translation>Das Telefon hat nicht geantwortet. Bitte sehen Sie dort nach.</translation>
    </message>
    <message>
        <source>Install finish succesfully!</source>
        <comment>JavaInstalled</comment>
        <translation>Die Installation ist abgeschlossen!</translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <comment>SaveImage</comment>
        <translation>Möchten Sie das Bild speichern?</translation>
    </message>
    <message>
        <source>Fail to save the image file!</source>
        <comment>ImageNotSaved</comment>
        <translation>Das Bild konnte nicht gespeichert werden!</translation>
    </message>
    <message>
        <source>It's an invalid image.</source>
        <comment>InvalidImage</comment>
        <translation>Das Bild ist ungültig.</translation>
    </message>
    <message>
        <source>The image can not be previewed by tarnbridge.</source>
        <comment>NoPreview</comment>
        <translation>Tarnbridge kann dieses Bild nicht anzeigen.</translation>
    </message>
    <message>
        <source>Fail to get temp file name !</source>
        <comment>NoTemporaryName</comment>
        <translation>Es gibt keinen freien Namen für eine Zwischendatei!</translation>
    </message>
    <message>
        <source>The image storage of handset is full. Please delete some files first, and then upload again!</source>
        <comment>ImageStorageFull</comment>
        <translation>Der Bildspeicher des Telefons ist voll. Bitte löschen Sie zuerst einige Dateien!</translation>
    </message>
    <message>
        <source>The image file will be uploaded with %s file format.</source>
        <comment>ImageFormatOfUpload</comment>
        <translation>Das Bild wird im Format %s übertragen.</translation>
    </message>
    <message>
        <source>Failed to upload!

The maximum file size of uploading is %s!</source>
        <comment>ImageTooLarge</comment>
        <translation>Die Übertragung ist fehlgeschlagen!

Die Datei darf höchstens %s groß sein!</translation>
    </message>
    <message>
        <source>Uploading image...</source>
        <comment>UploadingImage</comment>
        <translation>Bild wird übertragen …</translation>
    </message>
    <message>
        <source>Do you want to save the melody?</source>
        <comment>SaveMelody</comment>
        <translation>Möchten Sie die Melodie speichern?</translation>
    </message>
    <message>
        <source>Do you want to delete this track?</source>
        <comment>DeleteTrack</comment>
        <translation>Möchten Sie diese Spur löschen?</translation>
    </message>
    <message>
        <source>Failed to add new track!</source>
        <comment>TrackNotAdded</comment>
        <translation>Die Spur konnte nicht angelegt werden!</translation>
    </message>
    <message>
        <source>There're more than one track. If saved in 'imy' file format, some data will be lost.
Do you want to continue?</source>
        <comment>TracksWillBeLost</comment>
        <translation>Die Melodie hat mehrere Spuren. Im Format „imy“ geht ein Teil davon verloren.
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Failed to open melody file!</source>
        <comment>MelodyNotOpened</comment>
        <translation>Die Melodie konnte nicht geöffnet werden!</translation>
    </message>
    <message>
        <source>Failed to save melody file!</source>
        <comment>MelodyNotSaved</comment>
        <translation>Die Melodie konnte nicht gespeichert werden!</translation>
    </message>
    <message>
        <source>Failed to play melody!</source>
        <comment>MelodyNotPlayed</comment>
        <translation>Die Melodie konnte nicht gespielt werden!</translation>
    </message>
    <message>
        <source>Fail to init the melody synthesizer, please re-install the program!</source>
        <comment>SynthesizerMissing</comment>
        <translation>Die Klangerzeugung konnte nicht gestartet werden, bitte installieren Sie das Programm neu!</translation>
    </message>
    <message>
        <source>Could not open temp file</source>
        <comment>TemporaryFileNotOpened</comment>
        <translation>Die Zwischendatei konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Fail to delete MMS message!</source>
        <comment>MmsNotDeleted</comment>
        <translation>Die MMS konnte nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>Fail to delete MMS message '%s'!</source>
        <comment>NamedMmsNotDeleted</comment>
        <translation>Die MMS „%s“ konnte nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>Fail to download MMS file list!</source>
        <comment>MmsListNotDownloaded</comment>
        <translation>Die Liste der MMS konnte nicht geladen werden!</translation>
    </message>
    <message>
        <source>Fail to download MMS message!</source>
        <comment>MmsNotDownloaded</comment>
        <translation>Die MMS konnte nicht geladen werden!</translation>
    </message>
    <message>
        <source>Fail to upload MMS message!</source>
        <comment>MmsNotUploaded</comment>
        <translation>Die MMS konnte nicht übertragen werden!</translation>
    </message>
    <message>
        <source>It is an invalid MMS!</source>
        <comment>InvalidMms</comment>
        <translation>Die MMS ist ungültig!</translation>
    </message>
    <message>
        <source>The max number of recipients is 20!</source>
        <comment>TooManyMmsRecipients</comment>
        <translation>Eine MMS hat höchstens 20 Empfänger!</translation>
    </message>
    <message>
        <source>The recipient address is not allowed.</source>
        <comment>RecipientNotAllowed</comment>
        <translation>Diese Empfängeradresse ist nicht erlaubt.</translation>
    </message>
    <message>
        <source>The maximum of subject is 40 characters or 19 chinese words.</source>
        <comment>SubjectTooLong</comment>
        <translation>Der Betreff hat höchstens 40 Zeichen oder 19 chinesische Wörter.</translation>
    </message>
    <message>
        <source>The maximum of slides is 20.</source>
        <comment>TooManySlides</comment>
        <translation>Eine MMS hat höchstens 20 Seiten.</translation>
    </message>
    <message>
        <source>Can't edit this mms, because slide number is larger then 30!</source>
        <comment>TooManySlidesToEdit</comment>
        <translation>Diese MMS hat mehr als 30 Seiten und lässt sich nicht bearbeiten!</translation>
    </message>
    <message>
        <source>The file size is larger than 50KB. The recipients may not view this large message.</source>
        <comment>MmsLarge</comment>
        <translation>Die Datei ist größer als 50 KB. Vielleicht können die Empfänger sie nicht ansehen.</translation>
    </message>
    <message>
        <source>It can not delete the mms when mms is playing or pause.</source>
        <comment>MmsPlaying</comment>
        <translation>Solange die MMS läuft oder angehalten ist, lässt sie sich nicht löschen.</translation>
    </message>
    <message>
        <source>The MMS's content is empty, it can not be played by tarnbridge!</source>
        <comment>MmsEmpty</comment>
        <translation>Die MMS ist leer, es gibt nichts abzuspielen!</translation>
    </message>
    <message>
        <source>The MMS cannot be played by tarnbridge!</source>
        <comment>MmsNotPlayable</comment>
        <translation>Tarnbridge kann diese MMS nicht abspielen!</translation>
    </message>
    <message>
        <source>Fail to save MMS message!</source>
        <comment>MmsNotSaved</comment>
        <translation>Die MMS konnte nicht gespeichert werden!</translation>
    </message>
    <message>
        <source>Fail to write the file to the disk, maybe the disk is full.</source>
        <comment>MmsNotOnDisk</comment>
        <translation>Die Datei konnte nicht geschrieben werden, vielleicht ist der Datenträger voll.</translation>
    </message>
    <message>
        <source>Can not insert this image</source>
        <comment>ImageNotInserted</comment>
        <translation>Dieses Bild lässt sich nicht einfügen.</translation>
    </message>
    <message>
        <source>AMR files are supported on the phone but 
can't be played/verified on the current tool.</source>
        <comment>AmrNotPlayable</comment>
        <translation>AMR-Dateien gehen auf dem Telefon, aber 
nicht in diesem Programm.</translation>
    </message>
    <message>
        <source>Fail to get temp wave file !</source>
        <comment>NoTemporaryWave</comment>
        <translation>Es gibt keinen freien Namen für eine Klangdatei!</translation>
    </message>
    <message>
        <source>Fail to execute AMR decorder program !</source>
        <comment>AmrDecoderFailed</comment>
        <translation>Das Programm für AMR-Dateien konnte nicht gestartet werden!</translation>
    </message>
    <message>
        <source>Do you want to delete the MMS message from handset ?</source>
        <comment>DeleteMms</comment>
        <translation>Möchten Sie die MMS vom Telefon löschen?</translation>
    </message>
    <message>
        <source>Do you want to save the MMS message ?</source>
        <comment>SaveMms</comment>
        <translation>Möchten Sie die MMS speichern?</translation>
    </message>
    <message>
        <source>Fail to copy MMS message :</source>
        <comment>MmsNotCopied</comment>
        <translation>Die MMS konnte nicht kopiert werden:</translation>
    </message>
    <message>
        <source>Downloading MMS message ...</source>
        <comment>DownloadingMms</comment>
        <translation>MMS wird geladen …</translation>
    </message>
    <message>
        <source>Uploading MMS message ...</source>
        <comment>UploadingMms</comment>
        <translation>MMS wird übertragen …</translation>
    </message>
    <message>
        <source>Deleting MMS message ...</source>
        <comment>DeletingMms</comment>
        <translation>MMS wird gelöscht …</translation>
    </message>
    <message>
        <source>Installing modem...</source>
        <comment>InstallingModem</comment>
        <translation>Modem wird eingerichtet …</translation>
    </message>
    <message>
        <source>Fail to find the modem!</source>
        <comment>ModemNotFound</comment>
        <translation>Das Modem wurde nicht gefunden!</translation>
    </message>
    <message>
        <source>Fail to create an Internet Connection!</source>
        <comment>ConnectionNotCreated</comment>
        <translation>Die Internetverbindung konnte nicht angelegt werden!</translation>
    </message>
    <message>
        <source>Create connection successfully!</source>
        <comment>ConnectionCreated</comment>
        <translation>Die Verbindung ist angelegt!</translation>
    </message>
    <message>
        <source>Set APN fail!</source>
        <comment>ApnNotSet</comment>
        <translation>Der Zugangspunkt konnte nicht gesetzt werden!</translation>
    </message>
    <message>
        <source>Delete ?</source>
        <comment>DeleteOperator</comment>
        <translation>Löschen?</translation>
    </message>
    <message>
        <source>Can not find the file, please check whether the file        is right or not?</source>
        <comment>DialUpFileMissing</comment>
        <translation>Die Datei wurde nicht gefunden. Bitte prüfen Sie, ob sie stimmt.</translation>
    </message>
    <message>
        <source>Opening the port...</source>
        <comment>DialOpeningPort</comment>
        <translation>Der Anschluss wird geöffnet …</translation>
    </message>
    <message>
        <source>Port has been opened successfully</source>
        <comment>DialPortOpened</comment>
        <translation>Der Anschluss ist geöffnet.</translation>
    </message>
    <message>
        <source>Connecting to the device...</source>
        <comment>DialConnectingDevice</comment>
        <translation>Das Gerät wird verbunden …</translation>
    </message>
    <message>
        <source>The device has connected successfully.</source>
        <comment>DialDeviceConnected</comment>
        <translation>Das Gerät ist verbunden.</translation>
    </message>
    <message>
        <source>All devices in the device chain have successfully connected.</source>
        <comment>DialAllDevicesConnected</comment>
        <translation>Alle Geräte der Kette sind verbunden.</translation>
    </message>
    <message>
        <source>Verifying the user name and password...</source>
        <comment>DialAuthenticating</comment>
        <translation>Benutzername und Kennwort werden geprüft …</translation>
    </message>
    <message>
        <source>An authentication event has occurred.</source>
        <comment>DialAuthenticationEvent</comment>
        <translation>Die Anmeldung meldet ein Ereignis.</translation>
    </message>
    <message>
        <source>Requested another validation attempt with a new user.</source>
        <comment>DialAuthenticationRetry</comment>
        <translation>Ein weiterer Versuch mit einem neuen Benutzer ist verlangt.</translation>
    </message>
    <message>
        <source>Server has requested a callback number.</source>
        <comment>DialCallbackRequested</comment>
        <translation>Der Server verlangt eine Rückrufnummer.</translation>
    </message>
    <message>
        <source>The client has requested to change the password</source>
        <comment>DialChangePassword</comment>
        <translation>Das Kennwort soll geändert werden.</translation>
    </message>
    <message>
        <source>Registering your computer on the network...</source>
        <comment>DialRegistering</comment>
        <translation>Ihr Computer wird im Netz angemeldet …</translation>
    </message>
    <message>
        <source>The link-speed calculation phase is starting...</source>
        <comment>DialLinkSpeed</comment>
        <translation>Die Geschwindigkeit der Leitung wird bestimmt …</translation>
    </message>
    <message>
        <source>An authentication request is being acknowledged.</source>
        <comment>DialAuthenticationAcknowledged</comment>
        <translation>Die Anmeldung wird bestätigt.</translation>
    </message>
    <message>
        <source>Reauthentication (after callback) is starting.</source>
        <comment>DialReauthenticating</comment>
        <translation>Nach dem Rückruf beginnt die neue Anmeldung.</translation>
    </message>
    <message>
        <source>The user name and password have been verified successfully</source>
        <comment>DialAuthenticated</comment>
        <translation>Benutzername und Kennwort sind richtig.</translation>
    </message>
    <message>
        <source>The line is about to disconnect for callback.</source>
        <comment>DialPrepareCallback</comment>
        <translation>Die Leitung wird für den Rückruf getrennt.</translation>
    </message>
    <message>
        <source>Delaying to give the modem time to reset for callback.</source>
        <comment>DialModemReset</comment>
        <translation>Das Modem bekommt Zeit, sich für den Rückruf zurückzusetzen.</translation>
    </message>
    <message>
        <source>Waiting for an incoming call from server.</source>
        <comment>DialWaitForCall</comment>
        <translation>Der Anruf des Servers wird erwartet.</translation>
    </message>
    <message>
        <source>Projection result information is available.</source>
        <comment>DialProjected</comment>
        <translation>Das Ergebnis der Aushandlung liegt vor.</translation>
    </message>
    <message>
        <source>User authentication is being initiated or retried.</source>
        <comment>DialUserAuthentication</comment>
        <translation>Die Anmeldung beginnt oder wird wiederholt.</translation>
    </message>
    <message>
        <source>Client has been called back and is about to resume authentication.</source>
        <comment>DialCallbackComplete</comment>
        <translation>Der Rückruf ist da, die Anmeldung geht weiter.</translation>
    </message>
    <message>
        <source>Logging on to the network...</source>
        <comment>DialLoggingOn</comment>
        <translation>Anmeldung im Netz …</translation>
    </message>
    <message>
        <source>Subentry has been connected</source>
        <comment>DialSubentryConnected</comment>
        <translation>Der Untereintrag ist verbunden.</translation>
    </message>
    <message>
        <source>Subentry has been disconnected</source>
        <comment>DialSubentryDisconnected</comment>
        <translation>Der Untereintrag ist getrennt.</translation>
    </message>
    <message>
        <source>Terminal state supported by RASPHONE.EXE.</source>
        <comment>DialTerminalState</comment>
        <translation>Terminalzustand von RASPHONE.EXE.</translation>
    </message>
    <message>
        <source>Retry authentication state supported by RASPHONE.EXE.</source>
        <comment>DialRetryState</comment>
        <translation>Zustand „Anmeldung wiederholen“ von RASPHONE.EXE.</translation>
    </message>
    <message>
        <source>Callback state supported by RASPHONE.EXE.</source>
        <comment>DialCallbackState</comment>
        <translation>Rückrufzustand von RASPHONE.EXE.</translation>
    </message>
    <message>
        <source>Change password state supported by RASPHONE.EXE.</source>
        <comment>DialPasswordState</comment>
        <translation>Zustand „Kennwort ändern“ von RASPHONE.EXE.</translation>
    </message>
    <message>
        <source>Connect to remote server successfully!</source>
        <comment>DialConnected</comment>
        <translation>Die Verbindung zum Server steht!</translation>
    </message>
</context>
</TS>
