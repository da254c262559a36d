// The numbers of the language messages, by what they say in English.
#ifndef TAGRIX_CORE_MESSAGES_H
#define TAGRIX_CORE_MESSAGES_H

namespace tagrix::message {

inline constexpr int kCount = 178;  // messages 0 to 177

// Album page.
inline constexpr int kSearch = 1, kRetrieve = 2, kBurnPage = 3, kApply = 4, kMore = 5, kBrowse = 6, kClear = 7;
inline constexpr int kListerPage = 8, kBulkPage = 9, kPlaylistPage = 10;
inline constexpr int kAddFake = 11, kAutoSort = 12, kStatistics = 13, kDelete = 14, kRename = 15, kCreatePlaylist = 16;
inline constexpr int kId3v2 = 17, kId3v1 = 18, kUndo = 19, kFiles = 20, kResults = 21, kAlbums = 22, kTracks = 23;
inline constexpr int kSteps = 24, kOptions = 25;
inline constexpr int kArtist = 28, kAlbum = 29, kGenre = 30, kYear = 31, kCancel = 32, kOk = 33;

// About page.
inline constexpr int kSetupPage = 34, kCheckForUpdates = 35, kSupport = 36, kWebSite = 37, kAboutPage = 38;

// What Apply and Undo say.
inline constexpr int kApplying = 40, kNoOption = 41, kCountsDiffer = 42;
inline constexpr int kReadOnly = 43;  // %%1%% the name
inline constexpr int kTagsNotWritten = 44;
inline constexpr int kApplyClash = 45;  // %%1%% current name, %%2%% new name
inline constexpr int kUndoClash = 46;   // %%1%% former path, %%2%% current path
inline constexpr int kAutoSortGate = 47;
inline constexpr int kUnexpectedError = 48;
inline constexpr int kPlaylistExists = 50;  // %%1%% its name
inline constexpr int kDone = 51;

// FreeDB, updater, start-up.
inline constexpr int kOfferFakes = 53, kReadFailed = 54;
inline constexpr int kNoConnection = 55;
inline constexpr int kNewVersion = 56;        // %%1%% product
inline constexpr int kDownloadComplete = 57;  // %%1%% product
inline constexpr int kDownloadFailed = 58;
inline constexpr int kUpToDate = 59;  // %%1%% product, %%2%% major, %%3%% minor, %%4%% revision
inline constexpr int kUpdateInfoFailed = 60, kDiscardAlbum = 61, kNothingFound = 62;
inline constexpr int kNoStyles = 63, kStylesTooShort = 64;

// Folder chooser.
inline constexpr int kChooserCaption = 65, kDrive = 66, kFolder = 67, kPreview = 68, kFormat = 69, kSubfolders = 70;
inline constexpr int kRecurse = 71;

// Dialogs.
inline constexpr int kQueryCaption = 73, kQueryText = 74, kGenreCaption = 75, kTrackEditCaption = 76;
inline constexpr int kAutoSortCaption = 77, kMethod = 78, kFastSort = 79, kQuadraticSort = 80, kProgress = 81;
inline constexpr int kConfirmSort = 82;

// Bulk renamer.
inline constexpr int kUnmerge = 85, kCase = 86, kLowerCase = 87, kUpperCase = 88, kCapitals = 89, kUnderscores = 90;
inline constexpr int kSpaces = 91, kMultiSpaces = 92, kCaseFrame = 93, kAddFiles = 94, kAddFolder = 95, kReset = 96;
inline constexpr int kStart = 97;
inline constexpr int kBulkSummary = 99;  // %%1%% files renamed, %%2%% files listed

// Lister.
inline constexpr int kInputFolder = 100, kNameColon = 101, kPatternHelp = 102, kRecurseSubfolders = 103;
inline constexpr int kOutputFolder = 105, kSample = 108;
inline constexpr int kHelpName = 109, kHelpEnding = 110, kHelpFormat = 111, kHelpSize = 112, kHelpFolder = 113;
inline constexpr int kFolderMissing = 114, kNoFormat = 115;

// Playlist builder.
inline constexpr int kFileName = 117;
inline constexpr int kOverwritePlaylist = 118;  // %%1%% its name

// Setup page.
inline constexpr int kLanguage = 119, kChooseLanguage = 120, kInternet = 121, kBypass = 122, kAutoUpdate = 123;
inline constexpr int kRenamer = 124, kPatternColon = 125, kPlaylists = 126, kPlaylistInAlbum = 127;
inline constexpr int kPlaylistInParent = 128, kPlaylistInFolder = 129, kFreeDb = 130, kChooseServer = 131, kProxy = 132;
inline constexpr int kUseProxy = 133, kServerColon = 134, kPortColon = 135, kHttpConfig = 136, kCgiPath = 137;
inline constexpr int kHttpPort = 138, kTokenLegend = 139, kProxyNameMissing = 141;

// Statistics window.
inline constexpr int kStatisticsCaption = 142, kMaximumDeviation = 143, kGlobalDeviation = 144;
inline constexpr int kQuadraticDeviation = 145;

// Burn page.
inline constexpr int kBurn = 146, kCapacity = 147;

inline constexpr int kTitle = 165, kTrackNumber = 166, kNoFiles = 167;
inline constexpr int kRenameFailed = 169;  // %%FIC%% the new path
inline constexpr int kBurnTime = 172, kBurnerMissing = 173, kTooLong = 174, kAlbumPage = 175, kCancelled = 177;

// In the companions of the language files: texts of our own beyond those of the language files.
inline constexpr int kFirstMore = 200;

inline constexpr int kPurpose = 200;
inline constexpr int kAuthors = 201;  // %%1%% who
inline constexpr int kVersion = 202;  // %%1%% major, %%2%% minor, %%3%% revision

inline constexpr int kFileColumn = 203, kTimeColumn = 204, kTrackColumn = 205, kDifferenceColumn = 206;
inline constexpr int kNameBefore = 207, kNameAfter = 208, kMoveUp = 209, kMoveDown = 210;

// Statistics window.
inline constexpr int kFakeTracks = 211, kDifferenceChart = 212;
inline constexpr int kMeasuring = 213;  // %%1%% the file's number, %%2%% the number of files
inline constexpr int kVerdictFits = 214, kVerdictOtherOrder = 215;
inline constexpr int kVerdictFileMissing = 216;  // %%1%% the track's number
inline constexpr int kVerdictFileTooMany = 217;  // %%1%% the file's number
inline constexpr int kVerdictPartlyFits = 218, kVerdictWrongDisc = 219, kVerdictNothing = 220;
inline constexpr int kUnmeasured = 221, kWithoutFile = 222, kWithoutTrack = 223;

inline constexpr int kLookingForUpdate = 224;
inline constexpr int kInstallerNotStarted = 225;  // %%1%% its path
inline constexpr int kBurning = 226;

inline constexpr int kTagFailure = 227;      // %%1%% the file, %%2%% what happened
inline constexpr int kFoldersNotRead = 228;  // %%1%% their paths, one a line
inline constexpr int kNoPlaylistName = 229;
inline constexpr int kNoSuchFolder = 230;  // %%1%% its path

// What could not be done, and why (base/failure.h).
inline constexpr int kFirstAction = 231;  // in the order of Action
inline constexpr int kFirstCause = 243;   // in the order of Cause, from the second on

// Sources of discs.
inline constexpr int kSearchIn = 255, kFreeDbPage = 256;
inline constexpr int kContactingSource = 257;  // %%1%% the source
inline constexpr int kNotReached = 258;        // %%1%% the source
inline constexpr int kRefused = 259;           // %%1%% the source, %%2%% what it says
inline constexpr int kNoDiscAnswer = 260;      // %%1%% the source
inline constexpr int kOtherSources = 261, kFreeDbSite = 262, kMusicBrainzServer = 263, kContact = 264;

inline constexpr int kLicences = 265;

// How an album was measured.
inline constexpr int kMeasuredQuickly = 266, kMeasuredExactly = 267;
inline constexpr int kMeasuredPartlyExactly = 268;  // %%1%% the files measured exactly, %%2%% all files

inline constexpr int kNotSecure = 269;  // %%1%% the source

// How tags are written: the question before Apply, and the setup page.
inline constexpr int kTagStyleCaption = 270, kTagStyleReasons = 271;
inline constexpr int kDropsFrames = 272;    // %%1%% how many files
inline constexpr int kOldTag = 273;         // likewise: %%1%%
inline constexpr int kLongText = 274;       // likewise: %%1%%
inline constexpr int kForeignText = 275;    // likewise: %%1%%
inline constexpr int kOverwritesEnd = 276;  // likewise: %%1%%
inline constexpr int kWriteStandard = 277, kWriteClassic = 278, kTagStyleKept = 279;
inline constexpr int kTags = 280, kAskStyle = 281, kStandardStyle = 282, kClassicStyle = 283;
inline constexpr int kKeptAside = 284;  // %%1%% the file, %%2%% names of fields

inline constexpr int kPlaylistInUtf8 = 285;  // %%1%% its name

// Around the pages, and what is asked at the start and the end.
inline constexpr int kStillAtWork = 286, kLeaveAlbum = 287, kYes = 288, kNo = 289, kDontAskAgain = 290;

// The table of the album page, and what is asked before Apply.
inline constexpr int kFilesAndTracks = 291, kDoubtful = 292, kWrong = 293;
inline constexpr int kNameTaken = 294, kPathTooLong = 295, kNoNewName = 296;
inline constexpr int kSortFirst = 297, kApplyAsIs = 298;

// What Apply and Undo have done.
inline constexpr int kAppliedFigures = 299;   // %%1%% done, of %%2%%; %%3%% tagged, %%4%% renamed, %%5%% skipped
inline constexpr int kPlaylistWritten = 300;  // %%1%% its path
inline constexpr int kUndoGives = 301;
inline constexpr int kUndoneFigures = 302;  // %%1%% how many files
inline constexpr int kReasonColumn = 303, kTagged = 304, kRenamed = 305, kSkippedReadOnly = 306, kNotTagged = 307;
inline constexpr int kNotRenamedTaken = 308, kNotRenamed = 309, kUnchanged = 310;

// Folder chooser.
inline constexpr int kPathColon = 311, kMusicFolder = 312, kDesktopFolder = 313, kNetworkPlaces = 314;

// What is there to be seen and heard: names, hints and menus.
inline constexpr int kTracksWithoutFile = 315, kFilesWithoutTrack = 316;  // all that can be compared fits
inline constexpr int kNoManual = 317;
inline constexpr int kCurrentPage = 318;  // %%1%% the page
inline constexpr int kAlbumHint = 319, kFilesHint = 320, kResultsHint = 321;
inline constexpr int kOpenFile = 322, kShowInFolder = 323, kCopyName = 324, kEditRow = 325, kRenameFile = 328;
inline constexpr int kAlbumFolder = 326;
inline constexpr int kNewTitle = 327, kRenameCaption = 329;
inline constexpr int kVerdictFitsAsMeasured = 330;
inline constexpr int kFilesListed = 331;  // %%1%% how many, %%2%% the path of the list

}  // namespace tagrix::message

#endif
