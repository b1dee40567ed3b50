-- Tries each feature on the deck of a field, without a screen: QUOR=/path/of/quor nvim --headless -u NONE -S features.lua
-- Prints what each feature shows, and exits with 1 for an answer without the text that its row expects.

local editors = vim.fn.fnamemodify(debug.getinfo(1, "S").source:sub(2), ":p:h:h")
local field = vim.fn.fnamemodify(editors, ":h") .. "/examples/decks/field/"
package.path = editors .. "/neovim/?.lua;" .. package.path
vim.opt.swapfile = false
vim.opt.hidden = true

local function fail(what)
  io.write("WRONG: " .. what .. "\n")
  os.exit(1)
end

local function wait(what, done)
  if not vim.wait(30000, done, 50) then
    fail("no " .. what)
  end
end

local function show(what, text, expected)
  io.write("== " .. what .. "\n" .. text:gsub("%s+$", "") .. "\n")
  if not text:find(expected, 1, true) then
    fail(what .. " has no '" .. expected .. "'")
  end
end

local function lines(list, line_of)
  return table.concat(vim.tbl_map(line_of, vim.list_slice(list, 1, 12)), "\n")
end

local function count(list)
  return #list .. " in all"
end

local function labels(completion)
  return lines(completion.items or completion, function(each)
    return each.label
  end)
end

local function names(symbols)
  return lines(symbols, function(each)
    return each.name .. "  " .. (each.detail or each.containerName or "")
  end)
end

local function places(list)
  return lines(list, function(each)
    return vim.fn.fnamemodify(each.uri, ":t") .. ":" .. (each.range.start.line + 1)
  end)
end

local function edits(list)
  return lines(list, function(each)
    return (each.range.start.line + 1) .. ": " .. each.newText
  end)
end

local function edits_of_files(change)
  local files = {}
  for uri, list in pairs(change.changes) do
    table.insert(files, vim.fn.fnamemodify(uri, ":t") .. " " .. #list)
  end
  table.sort(files)
  return table.concat(files, "\n")
end

local forecast, arrays, main = "include/schedule/prediction.inc", "include/grid/porosity.inc", "field.data"

-- What it is, file, text to search, columns after its start, method, more parameters, how the answer is shown, a part of that.
-- Without a text the question is about the whole document.
local rows = {
  { "hover of a keyword", forecast, "^WCONPROD", 0, "hover", {}, nil, "**WCONPROD**" },
  { "hover of an item", forecast, "380", 0, "hover", {}, nil, "unit: bar" },
  { "hover of a name", forecast, [[\<ALDER]], 0, "hover", {}, nil, "group **ALDER**" },
  { "hover of an array", arrays, "^PORO", 0, "hover", {}, nil, "mean" },
  { "signature", forecast, "380", 0, "signatureHelp", {}, function(answer)
    local signature = answer.signatures[1]
    local range = signature.parameters[answer.activeParameter + 1].label
    return signature.label .. "\n" .. signature.label:sub(range[1] + 1, range[2])
  end, "\nBHP" },
  { "completion of keywords", forecast, "^WCONPROD", 3, "completion", {}, labels, "WCONINJE" },
  { "completion of choices", forecast, "RATE /", 0, "completion", {}, labels, "RATE" },
  { "completion of names", forecast, "ALDER    FLD", 2, "completion", {}, labels, "ALDER" },
  { "completion of paths", main, "GRID/porosity", 6, "completion", {}, labels, "porosity.inc" },
  { "definition", forecast, [[\<ALDER]], 0, "definition", {}, places, "wells.inc" },
  { "definition of a file", main, "GRID/porosity", 7, "definition", {}, function(answer)
    return places(vim.tbl_islist(answer) and answer or { answer })
  end, "porosity.inc" },
  { "references", forecast, [[\<ALDER]], 0, "references", { context = { includeDeclaration = true } }, places, "prediction.inc" },
  { "highlights", forecast, [[\<ALDER]], 0, "documentHighlight", {}, count, "in all" },
  { "rename over all files", forecast, [[\<ALDER]], 0, "rename", { newName = "ELDER" }, edits_of_files, "wells.inc" },
  { "outline", forecast, nil, 0, "documentSymbol", {}, names, "2023-04-01" },
  { "folding", forecast, nil, 0, "foldingRange", {}, count, "in all" },
  { "links", main, nil, 0, "documentLink", {}, function(answer)
    return lines(answer, function(each)
      return vim.fn.fnamemodify(each.target, ":t")
    end)
  end, "porosity.inc" },
  { "colours", forecast, nil, 0, "semanticTokens/full", {}, function(answer)
    return #answer.data / 5 .. " words"
  end, "words" },
  { "names of items", forecast, nil, 0, "inlayHint", { range = { start = { line = 0, character = 0 }, ["end"] = { line = 20, character = 0 } } },
    function(answer)
      return lines(answer, function(each)
        return (each.position.line + 1) .. ": " .. each.label
      end)
    end, "BHP" },
  { "code lenses", forecast, nil, 0, "codeLens", {}, count, "in all" },
}

local function open(file)
  if vim.api.nvim_buf_get_name(0) ~= field .. file then
    vim.cmd("edit " .. field .. file)
  end
  wait("server for " .. file, function()
    return next(vim.lsp.buf_get_clients(0)) ~= nil
  end)
end

local function ask(what, method, params)
  for _, each in pairs(vim.lsp.buf_request_sync(0, method, params, 30000) or {}) do
    if each.error or not each.result then
      fail(what .. ": " .. (each.error and each.error.message or "null"))
    end
    return each.result
  end
  fail("no answer for " .. what)
end

local function move_to(text, offset)
  vim.fn.cursor(1, 1)
  local line = vim.fn.search(text, "cW")
  if line == 0 then
    fail("no '" .. text .. "' in " .. vim.fn.expand("%:t"))
  end
  vim.fn.cursor(line, vim.fn.col(".") + offset)
end

local function try_row(row)
  local what, file, text, offset, method, more, render, expected = unpack(row, 1, 8)
  open(file)
  local params = { textDocument = vim.lsp.util.make_text_document_params() }
  if text then
    move_to(text, offset)
    params = vim.lsp.util.make_position_params(0, "utf-16")
  end
  local answer = ask(what, "textDocument/" .. method, vim.tbl_extend("force", params, more))
  if method == "hover" then
    answer = table.concat(vim.lsp.util.convert_input_to_markdown_lines(answer.contents), "\n")
  end
  show(what, render and render(answer) or answer, expected)
end

local function findings()
  return lines(vim.diagnostic.get(0), function(each)
    return (each.lnum + 1) .. ":" .. (each.col + 1) .. ": " .. each.message
  end)
end

-- A mistake, reported where it is with a link to what it means, and mended by a quick fix.
local function mend_mistake()
  open(forecast)
  move_to("^WCONPROD", 0)
  local record = vim.fn.line(".")
  vim.api.nvim_buf_set_lines(0, record - 1, record, false, { "WCONPROF" })
  wait("finding", function()
    return #vim.diagnostic.get(0) > 0
  end)
  show("diagnostics", findings(), "unknown keyword 'WCONPROF'")
  local finding = vim.diagnostic.get(0)[1].user_data.lsp
  show("what the code means", vim.fn.readfile(vim.uri_to_fname(finding.codeDescription.href))[1], finding.code)
  local params = vim.lsp.util.make_given_range_params({ record, 0 }, { record, 7 }, 0, "utf-16")
  params.context = { diagnostics = {} }
  local actions = ask("quick fixes", "textDocument/codeAction", params)
  show("quick fixes", lines(actions, function(each)
    return each.title
  end), "Did you mean WCONPROD")
  vim.lsp.util.apply_workspace_edit(actions[1].edit, "utf-16")
  wait("text without a finding", function()
    return #vim.diagnostic.get(0) == 0
  end)
  show("the mended line", vim.fn.getline(record), "WCONPROD")
end

-- A record that isn't aligned with the one above it.
local function format()
  open(forecast)
  move_to("ALDER    FLD", 0)
  local line = vim.fn.line(".")
  vim.fn.setline(line, "  ALDER FLD 3* 3500 RATE /")
  local params = vim.lsp.util.make_formatting_params({})
  local range = { start = { line = line - 1, character = 0 }, ["end"] = { line = line, character = 0 } }
  local place = { position = { line = line - 1, character = #vim.fn.getline(line) }, ch = "/" }
  for method, more in pairs({ formatting = {}, rangeFormatting = { range = range }, onTypeFormatting = place }) do
    show(method, edits(ask(method, "textDocument/" .. method, vim.tbl_extend("force", params, more))), "  ALDER    FLD  ")
  end
  vim.cmd("silent undo")
end

local function try_others()
  local lens = ask("lenses", "textDocument/codeLens", { textDocument = vim.lsp.util.make_text_document_params() })[1]
  show("a code lens", ask("a code lens", "codeLens/resolve", lens).command.title, "1 record")
  show("workspace symbols", names(ask("workspace symbols", "workspace/symbol", { query = "P1" })), "P1  well")
  local before = vim.lsp.get_active_clients()[1].id
  vim.cmd("QuorRestart")
  wait("server that is started again", function()
    local clients = vim.lsp.get_active_clients()
    return #clients == 1 and clients[1].id ~= before and clients[1].initialized
  end)
  mend_mistake()
end

local is_done, reason = pcall(function()
  require("quor").setup({ path = vim.env.QUOR, simulator = "Carrow" })
  mend_mistake()
  vim.tbl_map(try_row, rows)
  format()
  try_others()
end)
if not is_done then
  fail(reason)
end
io.write("== done\n")
vim.cmd("qall!")
