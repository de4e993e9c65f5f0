<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Words</name>
    <message>
        <source>Tarnbridge</source>
        <comment>ProgramName</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connected!</source>
        <comment>Connected</comment>
        <translation>Verbunden!</translation>
    </message>
    <message>
        <source>Disconnected!</source>
        <comment>Disconnected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to get the ini file.</source>
        <comment>IniFileMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ole Initialization Failed</source>
        <comment>OleFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to load EMS library!</source>
        <comment>EmsLibraryFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to start the background thread!</source>
        <comment>BackgroundThreadFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to save user data. Please make sure that you have rights to modify the folder which this execution file exits in.</source>
        <comment>ProfileNotSaved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to restart this application currently?
Press 'Yes' to restart right now.
Press 'No' to restart later manually.</source>
        <comment>RestartNow</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Folder</source>
        <comment>NewFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%d / %d</source>
        <comment>ProgressOf</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error</source>
        <comment>ErrorTitle</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <comment>Yes</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <comment>No</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <comment>Cancel</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes to all</source>
        <comment>YesToAll</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No to all</source>
        <comment>NoToAll</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SIM</source>
        <comment>MemorySim</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone</source>
        <comment>MemoryPhone</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PC</source>
        <comment>MemoryPc</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your messages and contacts are in use by another program. Please end it and start Tarnbridge again.</source>
        <comment>ProfileInUse</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file with your messages and contacts could not be read to its end. It was kept as:
%s</source>
        <comment>ProfileCopiedAside</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tarnbridge could not be started again. Please end it and start it yourself.</source>
        <comment>RestartFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <comment>Ok</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <comment>Cancelling</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Memory:</source>
        <comment>MemoryLabel</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phonebook</source>
        <comment>FeaturePhonebook</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Messages</source>
        <comment>FeatureMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <comment>FeatureSettings</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images</source>
        <comment>FeatureImages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Melodies</source>
        <comment>FeatureMelodies</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MMS</source>
        <comment>FeatureMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File manager</source>
        <comment>FeatureFiles</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Features</source>
        <comment>FeaturesName</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tool bar</source>
        <comment>ToolbarName</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection</source>
        <comment>ConnectionName</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <comment>MenuFile</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <comment>MenuView</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <comment>MenuSettings</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>MenuHelp</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <comment>CommandQuit</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <comment>CommandHelp</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Tarnbridge</source>
        <comment>CommandAbout</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <comment>CommandClose</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <comment>CommandBack</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contents</source>
        <comment>CommandContents</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to the features</source>
        <comment>CommandFeatures</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to the contents of the window</source>
        <comment>CommandForm</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <comment>HelpTitle</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The help page is missing. Please install the program again.</source>
        <comment>HelpMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About Tarnbridge</source>
        <comment>AboutTitle</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %s</source>
        <comment>AboutVersion</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A desktop companion for phones that speak AT commands.</source>
        <comment>AboutPurpose</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Built with</source>
        <comment>AboutBuiltWith</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Licence</source>
        <comment>AboutLicence</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your messages</source>
        <comment>MessagesPlaceTitle</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Messages of the phone and of this computer are shown here.</source>
        <comment>MessagesPlaceHint</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <comment>SettingsGeneral</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Messages</source>
        <comment>SettingsMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings pages</source>
        <comment>SettingsPages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone</source>
        <comment>SettingsPhoneGroup</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <comment>SettingsPort</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port that the phone is plugged into. The list follows what is plugged in.</source>
        <comment>SettingsPortTip</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No port is plugged in. Plug the phone in, or name its device.</source>
        <comment>SettingsNoPort</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%s - not plugged in</source>
        <comment>SettingsPortAway</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Other device...</source>
        <comment>SettingsAddPort</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path of the device, such as /dev/ttyUSB0 or /dev/rfcomm0:</source>
        <comment>SettingsDeviceQuestion</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no device of this name: %s</source>
        <comment>SettingsDeviceBad</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Look for ports</source>
        <comment>SettingsRefresh</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone &amp;model:</source>
        <comment>SettingsModel</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%d baud, %s, screen %d x %d</source>
        <comment>SettingsModelFacts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no flow control</source>
        <comment>FlowNone</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hardware flow control</source>
        <comment>FlowHardware</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>software flow control</source>
        <comment>FlowSoftware</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State:</source>
        <comment>SettingsState</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No phone is plugged in at this port.</source>
        <comment>PortMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You may not open %s. It belongs to the group %s: join it with "sudo usermod -aG %s $USER" and log in again.</source>
        <comment>PortNoRights</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%s is in use by another program.</source>
        <comment>PortInUse</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%s is in use by %s.</source>
        <comment>PortInUseBy</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%s is in use. The modem manager looks at new ports for some ten seconds; please wait.</source>
        <comment>PortProbed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%s isn't a serial port.</source>
        <comment>PortNotSerial</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%s can't be set to the speed of this phone model.</source>
        <comment>PortRate</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port is open, but the phone doesn't answer yet.</source>
        <comment>PortSilent</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Program</source>
        <comment>SettingsProgramGroup</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <comment>SettingsLanguage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The language of the program, from its next start on.</source>
        <comment>SettingsLanguageTip</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Long SMS</source>
        <comment>SettingsLongSms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Activate</source>
        <comment>SettingsActivate</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Deactivate</source>
        <comment>SettingsDeactivate</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A long text goes out as up to 10 messages that the receiver's phone joins. Each is paid for.</source>
        <comment>SettingsLongSmsHint</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Character Encoding</source>
        <comment>SettingsEncoding</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;7bit</source>
        <comment>SettingsSevenBit</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A&amp;utomatic</source>
        <comment>SettingsAutomatic</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>7bit keeps 160 characters a message. Automatic also sends all other scripts, with 70 characters a message.</source>
        <comment>SettingsEncodingHint</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferred memory</source>
        <comment>SettingsMemory</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where messages are kept when they are saved to the phone.</source>
        <comment>SettingsMemoryHint</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Handset Folder</source>
        <comment>MessageHandsetFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PC Folder</source>
        <comment>MessagePcFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inbox</source>
        <comment>Inbox</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outbox</source>
        <comment>Outbox</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sent Message</source>
        <comment>SentMessage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Draft</source>
        <comment>Draft</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Personal Folder</source>
        <comment>PersonalFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trash Can</source>
        <comment>MessageTrashCan</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading messages...</source>
        <comment>ReadingMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading message...</source>
        <comment>ReadingMessage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no available message in handset!</source>
        <comment>NoMessageInHandset</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to delete message from handset!</source>
        <comment>MessageNotDeleted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to update message from handset!</source>
        <comment>MessageNotUpdated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to write message to handset!</source>
        <comment>MessageNotWritten</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can't move the message(s) to the same folder!</source>
        <comment>MoveToSameFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the message(s)?</source>
        <comment>DeleteMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to move this folder to</source>
        <comment>MoveFolderTo</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to download the messages from handset ?</source>
        <comment>DownloadMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to create new folder!</source>
        <comment>FolderNotCreated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to create new message!</source>
        <comment>MessageNotCreated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please choose one folder to save!</source>
        <comment>ChooseFolderToSave</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to save the message!</source>
        <comment>MessageNotSaved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recepient address's length is larger than 4096 characters</source>
        <comment>RecipientsTextTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The total number of contacts character pass 256, please delete some contacts to continue send!</source>
        <comment>TooManyRecipientCharacters</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It can not send more than 1200 messages one time!</source>
        <comment>TooManyMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid phone number!</source>
        <comment>InvalidPhoneNumber</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is an invalid recipient!</source>
        <comment>InvalidRecipient</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no recipient in the sending messages!</source>
        <comment>NoRecipient</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the message?</source>
        <comment>SaveMessage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to send all messages in PC Outbox ?</source>
        <comment>SendAllOutbox</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sending messages...</source>
        <comment>SendingMessages</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Success</source>
        <comment>SendSuccess</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <comment>SendFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to create EMS object!</source>
        <comment>EmsObjectNotCreated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to export message to file!</source>
        <comment>MessagesNotExported</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to import message from file!</source>
        <comment>MessagesNotImported</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Object!</source>
        <comment>EmsInvalidObject</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The message is too long (more than 10 SMS)!Last input may be lost!</source>
        <comment>EmsMessageTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not support long SMS, last input maybe lost.</source>
        <comment>EmsLongSmsOff</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid DCS!</source>
        <comment>EmsInvalidDcs</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not Support Color Picture!</source>
        <comment>EmsNoColourPicture</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Null Pointer!</source>
        <comment>EmsNullPointer</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No memory or number of EMS object exceeds!</source>
        <comment>EmsNoMemory</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unspecified Error!</source>
        <comment>EmsUnspecified</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Handset folder</source>
        <comment>ContactHandsetFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PC folder</source>
        <comment>ContactPcFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trash can</source>
        <comment>ContactTrashCan</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lotus Notes</source>
        <comment>LotusNotes</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outlook</source>
        <comment>Outlook</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outlook Express</source>
        <comment>OutlookExpress</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mobile</source>
        <comment>LabelMobile</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home</source>
        <comment>LabelHome</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Office</source>
        <comment>LabelOffice</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fax</source>
        <comment>LabelFax</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name shouldn't contain any char of '\\' or '/'.</source>
        <comment>NameHasSlash</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum of contact name is %d characters!</source>
        <comment>NameTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum of contact name is %d English characters,
or %d Chinese characters!

Each of the following will be considered as 2 characters: 
\\ | [ ] { } ^ ~</source>
        <comment>NameTooLongForHandset</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum of contact name is %d English characters,
%d characters (if contains only Thai, Russian, Latin
or Arabic), or %d Chinese characters!</source>
        <comment>NameTooLongPacked</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid %s number format!</source>
        <comment>InvalidNumberFormat</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum of contact number is 40 characters!</source>
        <comment>NumberTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the contact's name or phone number!</source>
        <comment>NameOrNumberMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Email format is invalid, or it's too long! The maximum length is 60.</source>
        <comment>InvalidEmail</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The input of anniversary is not valid.

The correct format is 25/01/2004,
and the year must be between 1900-2030.</source>
        <comment>InvalidAnniversary</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to download phonebook entries from handset!</source>
        <comment>PhonebookNotDownloaded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There's no enough space in the disk!</source>
        <comment>NoDiskSpace</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading advanced items of ME entries ...</source>
        <comment>ReadingAdvancedItems</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading advanced...</source>
        <comment>ReadingAdvanced</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to read advanced information!</source>
        <comment>AdvancedNotRead</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to export phonebook to file!</source>
        <comment>PhonebookNotExported</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to import phonebook from file!</source>
        <comment>PhonebookNotImported</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading contacts form outlook...</source>
        <comment>ReadingOutlook</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please set the path of Lotus Notes first.</source>
        <comment>LotusNotesPathMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the contact ?</source>
        <comment>SaveContact</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save to...</source>
        <comment>SaveContactTo</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Phone book full!</source>
        <comment>PhonebookFull</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The phonebook is out of synchronization with mobile phone. You have to download the phonebook first!</source>
        <comment>PhonebookOutOfSync</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to write contact to handset!</source>
        <comment>ContactNotWritten</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to update contact from handset!</source>
        <comment>ContactNotUpdated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to move contact(s)!</source>
        <comment>ContactsNotMoved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The contact name '%s' exceeds length maximum!
 It will be shorten to '%s' for mobile phone!</source>
        <comment>NameWillBeShortened</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough space in handset!

Only %d contact(s) will be moved!</source>
        <comment>NotAllContactsMoved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough space in handset!

Only %d contact(s) will be copied!</source>
        <comment>NotAllContactsCopied</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copying contacts...</source>
        <comment>CopyingContacts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting contacts...</source>
        <comment>DeletingContacts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Are you sure to delete ?</source>
        <comment>DeleteForGood</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the contact(s)?</source>
        <comment>DeleteContacts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to download the phonebook from handset ?</source>
        <comment>DownloadPhonebook</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading phonebook...</source>
        <comment>ReadingPhonebook</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading phonebook from %s</source>
        <comment>ReadingPhonebookFrom</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find contacts...</source>
        <comment>FindContacts</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not find the string</source>
        <comment>StringNotFound</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New group</source>
        <comment>NewGroup</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Listing files...</source>
        <comment>ListingFiles</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current folders :</source>
        <comment>CurrentFolders</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Directory information is incomplete.</source>
        <comment>DirectoryIncomplete</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to get drive information</source>
        <comment>DriveInformationFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to create directory.</source>
        <comment>DirectoryNotCreated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name has been used!</source>
        <comment>NameUsed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File/folder name cannot exceed 62 bytes.</source>
        <comment>FileNameTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File/folder name can't be empty, and can't contain
one of the following characters:
\ / : * ? " &lt; &gt; |</source>
        <comment>FileNameNotAllowed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no enough space on the handset.</source>
        <comment>NoHandsetSpace</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading File...</source>
        <comment>DownloadingFile</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removing Folder...</source>
        <comment>RemovingFolder</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the files ?</source>
        <comment>DeleteFiles</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to delete file '%s'!</source>
        <comment>NamedFileNotDeleted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to delete file!</source>
        <comment>FileNotDeleted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to delete folder '%s'!</source>
        <comment>NamedFolderNotDeleted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to query contents of folder!</source>
        <comment>FolderNotQueried</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to download file!</source>
        <comment>FileNotDownloaded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to upload file!</source>
        <comment>FileNotUploaded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to move file(s)!</source>
        <comment>FilesNotMoved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to rename!</source>
        <comment>NotRenamed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a JAR file</source>
        <comment>SelectJarFile</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installing JAVA...</source>
        <comment>InstallingJava</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The length of file name is too long. Please execute java installation through your handset directly.</source>
        <comment>JavaNameTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to install java. Error: %d</source>
        <comment>JavaNotInstalled</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Target didn't respond, please check your target for more information.</source>
        <comment>TargetSilent</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install finish succesfully!</source>
        <comment>JavaInstalled</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <comment>SaveImage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to save the image file!</source>
        <comment>ImageNotSaved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It's an invalid image.</source>
        <comment>InvalidImage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image can not be previewed by tarnbridge.</source>
        <comment>NoPreview</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to get temp file name !</source>
        <comment>NoTemporaryName</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image storage of handset is full. Please delete some files first, and then upload again!</source>
        <comment>ImageStorageFull</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image file will be uploaded with %s file format.</source>
        <comment>ImageFormatOfUpload</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to upload!

The maximum file size of uploading is %s!</source>
        <comment>ImageTooLarge</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading image...</source>
        <comment>UploadingImage</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the melody?</source>
        <comment>SaveMelody</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete this track?</source>
        <comment>DeleteTrack</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to add new track!</source>
        <comment>TrackNotAdded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There're more than one track. If saved in 'imy' file format, some data will be lost.
Do you want to continue?</source>
        <comment>TracksWillBeLost</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to open melody file!</source>
        <comment>MelodyNotOpened</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to save melody file!</source>
        <comment>MelodyNotSaved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to play melody!</source>
        <comment>MelodyNotPlayed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to init the melody synthesizer, please re-install the program!</source>
        <comment>SynthesizerMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not open temp file</source>
        <comment>TemporaryFileNotOpened</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to delete MMS message!</source>
        <comment>MmsNotDeleted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to delete MMS message '%s'!</source>
        <comment>NamedMmsNotDeleted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to download MMS file list!</source>
        <comment>MmsListNotDownloaded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to download MMS message!</source>
        <comment>MmsNotDownloaded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to upload MMS message!</source>
        <comment>MmsNotUploaded</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is an invalid MMS!</source>
        <comment>InvalidMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The max number of recipients is 20!</source>
        <comment>TooManyMmsRecipients</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recipient address is not allowed.</source>
        <comment>RecipientNotAllowed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum of subject is 40 characters or 19 chinese words.</source>
        <comment>SubjectTooLong</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maximum of slides is 20.</source>
        <comment>TooManySlides</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can't edit this mms, because slide number is larger then 30!</source>
        <comment>TooManySlidesToEdit</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file size is larger than 50KB. The recipients may not view this large message.</source>
        <comment>MmsLarge</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It can not delete the mms when mms is playing or pause.</source>
        <comment>MmsPlaying</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The MMS's content is empty, it can not be played by tarnbridge!</source>
        <comment>MmsEmpty</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The MMS cannot be played by tarnbridge!</source>
        <comment>MmsNotPlayable</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to save MMS message!</source>
        <comment>MmsNotSaved</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to write the file to the disk, maybe the disk is full.</source>
        <comment>MmsNotOnDisk</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not insert this image</source>
        <comment>ImageNotInserted</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>AMR files are supported on the phone but 
can't be played/verified on the current tool.</source>
        <comment>AmrNotPlayable</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to get temp wave file !</source>
        <comment>NoTemporaryWave</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to execute AMR decorder program !</source>
        <comment>AmrDecoderFailed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the MMS message from handset ?</source>
        <comment>DeleteMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to save the MMS message ?</source>
        <comment>SaveMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to copy MMS message :</source>
        <comment>MmsNotCopied</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading MMS message ...</source>
        <comment>DownloadingMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uploading MMS message ...</source>
        <comment>UploadingMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deleting MMS message ...</source>
        <comment>DeletingMms</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installing modem...</source>
        <comment>InstallingModem</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to find the modem!</source>
        <comment>ModemNotFound</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fail to create an Internet Connection!</source>
        <comment>ConnectionNotCreated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create connection successfully!</source>
        <comment>ConnectionCreated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set APN fail!</source>
        <comment>ApnNotSet</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete ?</source>
        <comment>DeleteOperator</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Can not find the file, please check whether the file        is right or not?</source>
        <comment>DialUpFileMissing</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening the port...</source>
        <comment>DialOpeningPort</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port has been opened successfully</source>
        <comment>DialPortOpened</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting to the device...</source>
        <comment>DialConnectingDevice</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has connected successfully.</source>
        <comment>DialDeviceConnected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All devices in the device chain have successfully connected.</source>
        <comment>DialAllDevicesConnected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Verifying the user name and password...</source>
        <comment>DialAuthenticating</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An authentication event has occurred.</source>
        <comment>DialAuthenticationEvent</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Requested another validation attempt with a new user.</source>
        <comment>DialAuthenticationRetry</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Server has requested a callback number.</source>
        <comment>DialCallbackRequested</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The client has requested to change the password</source>
        <comment>DialChangePassword</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Registering your computer on the network...</source>
        <comment>DialRegistering</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The link-speed calculation phase is starting...</source>
        <comment>DialLinkSpeed</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An authentication request is being acknowledged.</source>
        <comment>DialAuthenticationAcknowledged</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reauthentication (after callback) is starting.</source>
        <comment>DialReauthenticating</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user name and password have been verified successfully</source>
        <comment>DialAuthenticated</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The line is about to disconnect for callback.</source>
        <comment>DialPrepareCallback</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delaying to give the modem time to reset for callback.</source>
        <comment>DialModemReset</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for an incoming call from server.</source>
        <comment>DialWaitForCall</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Projection result information is available.</source>
        <comment>DialProjected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User authentication is being initiated or retried.</source>
        <comment>DialUserAuthentication</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Client has been called back and is about to resume authentication.</source>
        <comment>DialCallbackComplete</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logging on to the network...</source>
        <comment>DialLoggingOn</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subentry has been connected</source>
        <comment>DialSubentryConnected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Subentry has been disconnected</source>
        <comment>DialSubentryDisconnected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Terminal state supported by RASPHONE.EXE.</source>
        <comment>DialTerminalState</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry authentication state supported by RASPHONE.EXE.</source>
        <comment>DialRetryState</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Callback state supported by RASPHONE.EXE.</source>
        <comment>DialCallbackState</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change password state supported by RASPHONE.EXE.</source>
        <comment>DialPasswordState</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect to remote server successfully!</source>
        <comment>DialConnected</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
